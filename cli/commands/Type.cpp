#include "cli/commands/CommandTable.h"
#include "cli/output/Json.h"
#include "cli/pages/RowValue.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/text/Text.h"
#include "platform/uikit/controllers/UINavigationController.h"

#include <algorithm>
#include <optional>

namespace prismo::cli {

namespace {

/// The page that a type row opens, on a navigation stack of its own.
struct Chooser {
    std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
    std::shared_ptr<Prismo2PrefsListController> root;
    std::shared_ptr<PSListItemsController> page;

    Chooser(std::shared_ptr<Prismo2PrefsListController> rootPage, const std::shared_ptr<PSSpecifier>& typeRow)
        : root(std::move(rootPage)) {
        navigation->pushViewController(root, false);
        root->openDetailPage(typeRow);
        page = std::dynamic_pointer_cast<PSListItemsController>(navigation->topViewController());
    }

    ~Chooser() {
        // The banner and its page keep each other alive.
        root->setStatusAlert(nullptr);
    }
    Chooser(const Chooser&) = delete;
    Chooser& operator=(const Chooser&) = delete;

    PSTitles titles() const {
        PSTitles result;
        for (const auto& row : *page->rows())
            if (row->cellType() == PSCellType::listItem)
                result.emplace_back(row->values().front(), row->name());
        return result;
    }

    void choose(const Value& value) {
        const auto rows = page->rows();
        const auto row = std::ranges::find_if(*rows, [&](const auto& each) {
            return !each->values().empty() && each->values().front() == value;
        });
        const auto position = page->indexPathForIndex(static_cast<std::size_t>(row - rows->begin()));
        page->tableViewDidSelectRowAtIndexPath(*page->table(), *position);
    }
};

class Type : public Command {
    std::string element_;
    std::optional<std::string> name_;

    void declare(CLI::App& app) override {
        app.add_option("ELEMENT", element_, elementNames)->required();
        app.add_option("NAME", name_, "global, disabled or custom; for global: global or 'icon color'");
    }

    Exit run(Host& host) override {
        const auto root = host.makePage();
        Chooser chooser(root, rowForElement(*root, element_, "_color_type"));
        if (name_) chooser.choose(choiceFromText(chooser.titles(), *name_));
        const auto value = chooser.page->readPreferenceValue(chooser.page->specifier());
        const auto title = lowercased(titleForValue(chooser.titles(), value));
        if (name_) host.throwOnProblem();
        if (host.options().json)
            host.printJson(
                {{"element", element_},
                 {"value", json(value)},
                 {"title", title.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(title)}});
        else if (!name_ && !title.empty())
            host.print(title + "\n");
        host.throwOnProblem();
        return title.empty() ? nothingThere : done;
    }
};

} // namespace

std::unique_ptr<Command> makeType() { return std::make_unique<Type>(); }

} // namespace prismo::cli
