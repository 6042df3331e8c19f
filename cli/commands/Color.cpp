#include "cli/commands/CommandTable.h"
#include "cli/pages/RowValue.h"

#include "platform/swatchkit/ColorText.h"
#include "platform/swatchkit/SWColorAlert.h"
#include "platform/text/Number.h"
#include "platform/uikit/UIApplication.h"

#include <nlohmann/json.hpp>
#include <optional>

namespace prismo::cli {

namespace {

class Color : public Command {
    std::string element_;
    std::optional<std::string> color_;

    void declare(CLI::App& app) override {
        app.add_option("ELEMENT", element_, elementNames)->required();
        app.add_option("COLOR", color_,
                       "rrggbb or rgb, with or without '#', then ':' and an alpha if wanted");
    }

    Exit run(Host& host) override {
        const auto page = host.makePage();
        const auto row = rowForElement(*page, element_, "_color");
        if (color_) pickColor(*row, colorArgument(*color_));
        const auto color = startColor(*row);
        if (color_) host.throwOnProblem();
        if (host.options().json)
            host.printJson({{"element", element_}, {"color", hexFromColor(color)}, {"alpha", color.alpha}});
        else if (!color_)
            host.print(hexFromColor(color) + (color.alpha < 1 ? ":" + decimalText(color.alpha) : "") + "\n");
        host.throwOnProblem();
        return done;
    }

    /// The color that the picker opens with.
    static UIColor startColor(PSSpecifier& row) {
        row.performButtonAction();
        const auto picker = topmostPresented<SWColorAlert>();
        picker->cancel();
        return picker->startColor();
    }
};

} // namespace

std::unique_ptr<Command> makeColor() { return std::make_unique<Color>(); }

} // namespace prismo::cli
