#pragma once

#include "cli/host/Host.h"

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UISplitViewController.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace prismo::cli {

/// The module on screen, ready for a person's taps: its root page is on a navigation stack and has appeared.
class DriveSession {
  public:
    explicit DriveSession(Host& host);
    DriveSession(const DriveSession&) = delete;
    DriveSession& operator=(const DriveSession&) = delete;

    /// Plays one line, given as its words (at least one), then settles. Returns what the line adds to its
    /// answer. Throws CommandError if the line cannot be read (wrong usage) or what it names does not exist
    /// (nothing there).
    nlohmann::ordered_json play(const std::vector<std::string>& words);

  private:
    using Words = std::vector<std::string>;
    using Answer = nlohmann::ordered_json;
    struct Line;
    static const std::vector<Line>& lines();

    // Rows
    Answer rows(const Words& words);
    Answer tap(const Words& words);
    Answer set(const Words& words);
    Answer choose(const Words& words);
    Answer select(const Words& words);
    // Over the page
    Answer pick(const Words& words);
    Answer cancel(const Words& words);
    Answer answer(const Words& words);
    Answer share(const Words& words);
    Answer send(const Words& words);
    Answer dismiss(const Words& words);
    Answer banner(const Words& words);
    Answer back(const Words& words);
    // The world
    Answer wait(const Words& words);
    Answer post(const Words& words);
    Answer rotate(const Words& words);
    Answer state(const Words& words);
    Answer effects(const Words& words);
    Answer file(const Words& words);
    Answer handlers(const Words& words);
    Answer accounts(const Words& words);
    // The kit
    Answer follow(const Words& words);
    Answer profile(const Words& words);
    Answer mail(const Words& words);
    Answer tint(const Words& words);
    Answer untint(const Words& words);
    Answer kill(const Words& words);

    /// Runs the loop until nothing is due.
    void settle();
    std::shared_ptr<PSListController> topPage() const;
    /// The table of the application picker; null if another page is on top.
    std::shared_ptr<UITableView> pickerTable() const;
    /// The row that a line names: by identifier, by name or as #N. Never a group row or a disabled one.
    std::shared_ptr<PSSpecifier> row(const std::string& name) const;
    static void tapRow(PSListController& page, const PSSpecifier& row);

    Host& host_;
    std::shared_ptr<Prismo2PrefsListController> root_;
    std::shared_ptr<UINavigationController> navigation_ = std::make_shared<UINavigationController>();
    std::shared_ptr<UISplitViewController> split_ = std::make_shared<UISplitViewController>();
};

/// What the line `state` reports.
nlohmann::ordered_json driveState(const Prismo2PrefsListController& root,
                                  const UINavigationController& navigation);

} // namespace prismo::cli
