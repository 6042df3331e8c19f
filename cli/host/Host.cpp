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

namespace {

std::string problemText(const FileProblem& problem) { return problem.path + ": " + problem.cause; }

} // namespace

Host::Host(const Options& options, Companions companions, Clock clock) : options_(options) {
    const auto root = DeviceRootPath::choose(options.root);
    if (!options.dryRun) root.makeIfDefault();
    // A dry run takes a default root that is yet to be made for an empty one.
    if (!options.dryRun || !root.isDefault() || root.exists()) linux_.emplace(root.path(), clock);
    if (options.dryRun) {
        driver_ = std::make_unique<PollDriver>(clock);
        memory_.emplace(linux_ ? &*linux_ : nullptr, *driver_);
    }
    device_ = memory_ ? static_cast<Device*>(&*memory_) : &*linux_;
    device_->setCompanions(companions);
    if (linux_) linux_->setCompanions(companions); // a dry run asks it
    current_.emplace(*device_);
    effects_.emplace(*device_);
    const auto observer = [this](const FileProblem& problem) { keep(problem); };
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

void Host::keep(const FileProblem& problem) {
    if (tellsAtOnce_) {
        tell(problem);
        hasToldFatal_ = hasToldFatal_ || isFatal(problem);
    } else if (std::ranges::find(problems_, problem) == problems_.end()) {
        problems_.push_back(problem);
    }
}

void Host::tell(const FileProblem& problem) {
    std::fprintf(stderr, "prismo2: %s\n", printable(problemText(problem)).c_str());
}

bool Host::isFatal(const FileProblem& problem) const {
    return problem.kind != FileProblem::Kind::replaced && !isToldWithAnother(problem);
}

bool Host::isToldWithAnother(const FileProblem& problem) const {
    using Kind = FileProblem::Kind;
    // What became of the write that met a malformed file says more than that it did.
    return problem.kind == Kind::malformed && std::ranges::any_of(problems_, [&](const FileProblem& other) {
               return (other.kind == Kind::replaced || other.kind == Kind::unwritable) &&
                      other.path == problem.path;
           });
}

void Host::throwOnProblem() const {
    const auto found =
        std::ranges::find_if(problems_, [this](const auto& problem) { return isFatal(problem); });
    if (found != problems_.end()) throw CommandError(failed, problemText(*found));
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
        if (isToldWithAnother(problem)) continue;
        tell(problem);
        if (isFatal(problem) && exit == done) exit = failed;
    }
    return exit == done && hasToldFatal_ ? failed : exit;
}

void Host::tellProblemsBeside(const std::string& complaint) const {
    // Where the complaint is of a failure, that is the first one, and the later ones mostly follow from it.
    const bool isFailureTold = std::ranges::any_of(problems_, [&](const FileProblem& problem) {
        return isFatal(problem) && problemText(problem) == complaint;
    });
    for (const auto& problem : problems_)
        if (!isToldWithAnother(problem) && !(isFailureTold && isFatal(problem))) tell(problem);
}

} // namespace prismo::cli
