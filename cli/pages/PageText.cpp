#include "cli/pages/PageText.h"

#include "cli/pages/RowValue.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/swatchkit/ColorText.h"
#include "platform/text/Printable.h"

#include <algorithm>
#include <sstream>

namespace prismo::cli {

namespace {

constexpr std::size_t valueColumn = 36;
constexpr std::size_t lineWidth = 78;

class PageWriter {
  public:
    PageWriter(PSListController& page, Style style) : page_(page), colors_(style == Style::colors) {}

    std::string write() {
        heading(page_.title());
        for (const auto& row : *page_.rows()) {
            if (row->cellType() == PSCellType::group)
                startGroup(*row);
            else
                writeRow(*row);
        }
        endGroup();
        return std::move(text_);
    }

  private:
    std::string styled(const char* attributes, const std::string& text) const {
        return colors_ && !text.empty() ? "\x1b[" + std::string(attributes) + "m" + text + "\x1b[0m" : text;
    }

    void heading(const std::string& title) { text_ += styled("1", printable(title)) + "\n"; }

    void startGroup(const PSSpecifier& group) {
        endGroup();
        footer_ = group.propertyForKey("footerText").text();
        text_ += "\n";
        if (!group.name().empty()) heading(group.name());
    }

    void endGroup() {
        std::istringstream lines(std::exchange(footer_, ""));
        for (std::string line; std::getline(lines, line);) {
            line.erase(0, line.find_first_not_of(' '));
            if (!line.empty()) wrap(printable(line));
        }
    }

    void wrap(const std::string& line) {
        std::istringstream words(line);
        std::string current;
        const auto flush = [&] { text_ += "  " + styled("2", current) + "\n"; };
        for (std::string word; words >> word;) {
            if (!current.empty() && columns(current) + 1 + columns(word) > lineWidth - 2) {
                flush();
                current.clear();
            }
            current += (current.empty() ? "" : " ") + word;
        }
        flush();
    }

    void writeRow(PSSpecifier& row) {
        const auto name = printable(row.name());
        const auto value = shown(row);
        std::string line = "  " + (row.isEnabled() ? name : styled("2", name));
        if (!value.empty()) {
            const auto used = 2 + columns(name);
            line += std::string(valueColumn > used ? valueColumn - used : 1, ' ') + value;
        }
        if (!row.isEnabled()) line += styled("2", " (disabled)");
        text_ += line + "\n";
    }

    std::string shown(PSSpecifier& row) {
        if (const auto swatch = swatchOfRow(row)) return swatchText(*swatch);
        switch (row.cellType()) {
        case PSCellType::switchCell:
            return row.performGetter().boolValue() ? styled("32", "on") : "off";
        case PSCellType::segment:
            return segmentText(row);
        case PSCellType::linkList: {
            const auto title = printable(titleForValue(row.shortTitleDictionary(), row.performGetter()));
            return title.empty() ? ">" : title + " >";
        }
        case PSCellType::link:
            return ">";
        case PSCellType::listItem: {
            auto* chooser = dynamic_cast<PSListItemsController*>(&page_);
            return chooser && chooser->isChecked(row) ? "chosen" : "";
        }
        case PSCellType::button:
        case PSCellType::group:
            break;
        }
        return "";
    }

    std::string segmentText(PSSpecifier& row) {
        const auto current = row.performGetter();
        std::string text;
        for (const auto& [value, title] : row.titleDictionary()) {
            if (!text.empty()) text += "  ";
            const auto shownTitle = printable(title);
            text += value.isEqual(current) ? styled("7", "[" + shownTitle + "]") : shownTitle;
        }
        return text;
    }

    std::string swatchText(const UIColor& color) const {
        auto hex = hexFromColor(color);
        if (!colors_) return hex;
        const auto byte = [](double component) { return std::to_string(byteFromComponent(component)); };
        const auto background = "48;2;" + byte(color.red) + ";" + byte(color.green) + ";" + byte(color.blue);
        return styled(background.c_str(), "    ") + " " + hex;
    }

    PSListController& page_;
    bool colors_;
    std::string text_;
    std::string footer_;
};

} // namespace

std::string pageText(PSListController& page, Style style) { return PageWriter(page, style).write(); }

} // namespace prismo::cli
