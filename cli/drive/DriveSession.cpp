#include "cli/drive/DriveSession.h"

#include "cli/output/CommandError.h"

#include "platform/foundation/Trace.h"
#include "platform/text/Number.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace prismo::cli {

struct DriveSession::Line {
    const char* name;
    Answer (DriveSession::*play)(const Words&);
    /// The words after the name, as usage text.
    const char* usage;
    /// The number of those words.
    std::size_t atLeast;
    std::size_t atMost;
};

const std::vector<DriveSession::Line>& DriveSession::lines() {
    using S = DriveSession;
    constexpr auto any = std::numeric_limits<std::size_t>::max();
    static const std::vector<Line> all{
        {"rows", &S::rows, "", 0, 0},
        {"tap", &S::tap, "ROW", 1, 1},
        {"set", &S::set, "ROW VALUE", 2, 2},
        {"choose", &S::choose, "ROW", 1, 1},
        {"select", &S::select, "ID", 1, 1},
        {"pick", &S::pick, "COLOR", 1, 1},
        {"cancel", &S::cancel, "", 0, 0},
        {"answer", &S::answer, "N", 1, 1},
        {"share", &S::share, "", 0, 0},
        {"send", &S::send, "", 0, 0},
        {"dismiss", &S::dismiss, "", 0, 0},
        {"banner", &S::banner, "", 0, 0},
        {"back", &S::back, "", 0, 0},
        {"wait", &S::wait, "S", 1, 1},
        {"post", &S::post, "NAME", 1, 1},
        {"rotate", &S::rotate, "W H", 2, 2},
        {"state", &S::state, "", 0, 0},
        {"effects", &S::effects, "", 0, 0},
        {"file", &S::file, "", 0, 0},
        {"handlers", &S::handlers, "SCHEME …", 0, any},
        {"accounts", &S::accounts, "granted|refused [NAME …]", 1, any},
        {"follow", &S::follow, "USERNAME [--title T] [--message M]", 1, 5},
        {"profile", &S::profile, "USERNAME", 1, 1},
        {"mail", &S::mail, "ADDRESS", 1, 1},
        {"tint", &S::tint, "COLOR", 1, 1},
        {"untint", &S::untint, "", 0, 0},
        {"kill", &S::kill, "PROCESS [SIGNAL]", 1, 2},
    };
    return all;
}

DriveSession::DriveSession(Host& host) : host_(host), root_(host.makePage()) {
    split_->setViewControllers({navigation_});
    navigation_->pushViewController(root_, false);
    settle();
}

void DriveSession::settle() {
    // What a callback queues is due on the next turn. The limit is for a page that observes its own posts,
    // which would never end.
    constexpr int mostTurns = 100;
    auto& loop = host_.device().runLoop();
    int turns = 0;
    do {
        loop.run(Seconds::zero());
    } while (++turns < mostTurns && loop.nextDeadline().value_or(RunLoop::Time::max()) <= loop.now());
}

nlohmann::ordered_json DriveSession::play(const Words& words) {
    const Trace::Step step(
        "script", [&] { return Trace::text(Array(words.begin(), words.end())); }, "DriveSession::play");
    const auto line = std::ranges::find(lines(), words.front(), &Line::name);
    if (line == lines().end()) throw CommandError(wrongUsage, "unknown line '" + words.front() + "'");
    const Words arguments(words.begin() + 1, words.end());
    if (arguments.size() < line->atLeast || arguments.size() > line->atMost)
        throw CommandError(wrongUsage,
                           "'" + words.front() + "' takes " + (*line->usage ? line->usage : "no arguments"));
    auto answer = (this->*line->play)(arguments);
    settle();
    return answer;
}

std::shared_ptr<PSListController> DriveSession::topPage() const {
    auto page = std::dynamic_pointer_cast<PSListController>(navigation_->topViewController());
    if (pickerTable())
        throw CommandError(nothingThere, "the page on top is the application picker; use 'select ID'");
    if (!page) throw CommandError(nothingThere, "the page on top has no rows");
    return page;
}

std::shared_ptr<PSSpecifier> DriveSession::row(const std::string& name) const {
    const auto rows = topPage()->rows();
    std::shared_ptr<PSSpecifier> found;
    if (name.starts_with('#')) {
        const auto index = numberFromText<std::size_t>(std::string_view(name).substr(1));
        if (index && *index < rows->size()) found = (*rows)[*index];
        if (found && found->cellType() == PSCellType::group) found = nullptr;
    } else if (!name.empty()) { // rows without an identifier have an empty one
        const auto match = std::ranges::find_if(*rows, [&](const auto& row) {
            return row->cellType() != PSCellType::group && (row->identifier() == name || row->name() == name);
        });
        if (match != rows->end()) found = *match;
    }
    if (!found) throw CommandError(nothingThere, "no row '" + name + "'");
    if (!found->isEnabled()) throw CommandError(nothingThere, "the row '" + name + "' is disabled");
    return found;
}

void DriveSession::tapRow(PSListController& page, const PSSpecifier& row) {
    if (const auto position = page.indexPathForSpecifier(row)) page.tapRow(*position);
}

} // namespace prismo::cli
