#pragma once

#include "settings/bundles/BundleListController.h"
#include "settings/model/pages/Page.h"
#include "settings/model/Phone.h"
#include "tests/support/World.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QString>
#include <string>

namespace prismo::settings {

/// The phone's screen on a device in memory, with the bundle and an application "Example". Time is virtual;
/// `settle` handles the window's events.
struct PhoneWorld : World {
    PhoneWorld() { phone.open(firstPage()); }

    std::shared_ptr<UIViewController> firstPage() {
        return BundleListController::initWithEntries(
            {{"Elsewhere", "Elsewhere", "", false}, {"Prismo 2", "Prismo2Prefs", "", true}}, "/the/root",
            [](const std::string& /*bundle*/) { return &prismo2PrefsPrincipalClass(); },
            [this](const std::string& why) { phone.notices()->add("Cannot Be Opened", why.c_str()); });
    }

    /// Handles pending events on the device and in the window.
    void settle() {
        constexpr int turns = 4;
        for (int i = 0; i < turns; ++i) {
            QCoreApplication::processEvents();
            runFor(0);
        }
    }
    /// Waits until a page has settled after a change.
    void settlePage() {
        settle();
        runFor(0.05);
        settle();
    }

    Page& top() { return dynamic_cast<Page&>(*phone.pages()->top()); }
    Table& table() { return *top().table(); }
    QVariant role(int row, const char* name) { return roleOf(table(), row, name); }
    static QVariant roleOf(const QAbstractItemModel& model, int row, const char* name) {
        return model.data(model.index(row, 0), model.roleNames().key(name));
    }
    /// The position of the first line with that title and, if given, that kind. Fails the test if there is
    /// no such line.
    int row(const QString& title, std::optional<RowKind::Kind> kind = {}) {
        for (int i = 0; i < table().rowCount(); ++i)
            if (role(i, "title") == title && (!kind || role(i, "kind") == *kind)) return i;
        throw std::logic_error("no line '" + title.toStdString() + "'");
    }
    void tap(const QString& title) {
        table().tap(row(title));
        settlePage();
    }
    /// Opens the module's root page.
    Prismo2PrefsListController& openModule() {
        tap("Prismo 2");
        auto& opened = dynamic_cast<Prismo2PrefsListController&>(*top().controller());
        return opened;
    }

    Phone phone{{"/the/root", ""}};
};

} // namespace prismo::settings
