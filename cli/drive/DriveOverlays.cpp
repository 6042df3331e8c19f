// The lines of `drive` for what appears over a page.

#include "cli/drive/DriveSession.h"
#include "cli/output/CommandError.h"
#include "cli/pages/RowValue.h"

#include "platform/social/SLComposeViewController.h"
#include "platform/swatchkit/SWColorAlert.h"
#include "platform/text/Number.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/views/UIAlertView.h"

namespace prismo::cli {

using Answer = nlohmann::ordered_json;

namespace {

template <typename Object>
std::shared_ptr<Object> presented(const char* what) {
    auto object = topmostPresented<Object>();
    if (!object) throw CommandError(nothingThere, std::string("no ") + what + " is open");
    return object;
}

} // namespace

Answer DriveSession::pick(const Words& words) {
    const auto color = colorArgument(words[0]);
    const auto picker = presented<SWColorAlert>("color picker");
    picker->setColor(color);
    picker->accept();
    return Answer::object();
}

Answer DriveSession::cancel(const Words& /*words*/) {
    presented<SWColorAlert>("color picker")->cancel();
    return Answer::object();
}

Answer DriveSession::answer(const Words& words) {
    const auto& text = words[0];
    const auto button = numberFromText<std::size_t>(text);
    if (!button) throw CommandError(wrongUsage, "'" + text + "' is not a button number");
    const auto alert = presented<UIAlertView>("alert");
    if (*button >= alert->buttonTitles().size())
        throw CommandError(nothingThere, "the alert has no button " + text);
    alert->clickButtonAtIndex(*button);
    return Answer::object();
}

Answer DriveSession::share(const Words& /*words*/) {
    const auto& item = navigation_->topViewController()->navigationItem().rightBarButtonItem();
    if (!item) throw CommandError(nothingThere, "the navigation bar has no right button");
    item->tap();
    return Answer::object();
}

Answer DriveSession::send(const Words& /*words*/) {
    presented<SLComposeViewController>("compose sheet")->send();
    return Answer::object();
}

Answer DriveSession::dismiss(const Words& /*words*/) {
    presented<SLComposeViewController>("compose sheet")->dismiss();
    return Answer::object();
}

Answer DriveSession::banner(const Words& /*words*/) {
    const auto& button = root_->statusAlert()->actionButton();
    if (!button->takesTouches()) throw CommandError(nothingThere, "no status bar alert is shown");
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    return Answer::object();
}

} // namespace prismo::cli
