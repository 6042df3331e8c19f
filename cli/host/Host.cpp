#include "cli/host/Host.h"

#include "cli/output/CommandError.h"
#include "cli/output/Json.h"
#include "platform/linux/files/DeviceRootPath.h"
#include "platform/text/Printable.h"
#include "screens/Bundle.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace prismo::cli {

Host::Host(const Options& options, Companions companions, Clock clock) : options_(options) {
    const auto root = valueOrThrow(DeviceRootPath::choose(options.root));
    if (!options.dryRun) valueOrThrow(root.makeIfDefault());
    // For a dry run, a default root that does not exist yet is empty.
    if (!options.dryRun || !root.isDefault() || root.exists()) linux_.emplace(root.path(), clock, companions);
    if (options.dryRun) {
        driver_ = std::make_unique<PollDriver>(clock);
        memory_.emplace(linux_ ? &*linux_ : nullptr, *driver_, companions);
    }
    device_ = memory_ ? static_cast<Device*>(&*memory_) : &*linux_;
    current_.emplace(*device_);
    effects_.emplace(*device_);
    const auto observer = [this](const Problem& problem) { note(problem); };
    device_->setProblemObserver(observer);
    if (linux_) linux_->setProblemObserver(observer);
    registerPrismo2Prefs();
}

std::shared_ptr<Prismo2PrefsListController> Host::makePage() {
    auto page = std::make_shared<Prismo2PrefsListController>();
    page->initForContentSize({});
    page->setIsInAppScope(options_.app.has_value());
    if (options_.app && !options_.app->empty()) page->setScopeId(options_.app);
    return page;
}

MemoryDevice& Host::memoryDevice() {
    if (!memory_) throw CommandError(wrongUsage, "only with --dry-run");
    return *memory_;
}

void Host::note(const Problem& problem) {
    if (printsAtOnce_) {
        printProblem(problem);
        hasPrintedFatal_ = hasPrintedFatal_ || isFatal(problem);
    } else {
        problems_.add(problem);
    }
}

void Host::printProblem(const Problem& problem) {
    std::fprintf(stderr, "prismo2: %s\n", printable(problem.text()).c_str());
}

bool Host::isFatal(const Problem& problem) const {
    return problem.kind != Problem::Kind::replaced && !problems_.explains(problem);
}

void Host::throwOnProblem() const {
    for (const auto& problem : problems_)
        if (isFatal(problem)) throw CommandError(failed, problem.text());
}

void Host::print(const std::string& text) { results_.write(text); }

void Host::printJson(nlohmann::ordered_json document) {
    if (options_.dryRun) document["effects"] = json(takeEffects());
    print(jsonText(document) + "\n");
}

bool Host::showsColors() const {
    const auto set = [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value;
    };
    const char* terminal = std::getenv("TERM");
    return results_.isTerminal() && !set("NO_COLOR") && terminal && std::string_view(terminal) != "dumb";
}

int Host::finish(int exit) {
    if (options_.dryRun)
        for (const auto& effect : takeEffects())
            print("would " + effectLine(effect) + "\n");
    for (const auto& problem : problems_) {
        if (problems_.explains(problem)) continue;
        printProblem(problem);
        if (isFatal(problem) && exit == done) exit = failed;
    }
    return exit == done && hasPrintedFatal_ ? failed : exit;
}

void Host::finishWithError(const std::string& message) const {
    // If the message is a problem that makes the command fail, it is the first one, and later ones mostly
    // follow from it.
    const bool isProblem = std::ranges::any_of(
        problems_, [&](const Problem& problem) { return isFatal(problem) && problem.text() == message; });
    for (const auto& problem : problems_)
        if (!problems_.explains(problem) && !(isProblem && isFatal(problem))) printProblem(problem);
}

} // namespace prismo::cli
