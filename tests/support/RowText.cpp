#include "tests/support/RowText.h"

#include "platform/foundation/Overloaded.h"
#include "platform/text/Number.h"
#include "platform/uikit/graphics/UIImage.h"

#include <stdexcept>

namespace prismo {

namespace {

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string titlesText(const PSTitles& titles) {
    std::string result = "{";
    for (const auto& [value, title] : titles)
        result += (result.size() > 1 ? ", " : "") + valueText(value) + ' ' + quoted(title);
    return result + '}';
}

} // namespace

std::string valueText(const Value& value) {
    if (const auto image = value.object<UIImage>())
        return "image " + decimalText(image->size().width) + 'x' + decimalText(image->size().height);
    return value.visit(Overloaded{
        [](std::monostate) -> std::string { return "nothing"; },
        [](bool held) -> std::string { return held ? "true" : "false"; },
        [](std::int64_t held) { return std::to_string(held); },
        [](double held) { return decimalText(held); },
        [](const std::string& held) { return quoted(held); },
        [](const Class* held) { return '<' + held->name() + '>'; },
        [](const auto&) -> std::string { throw std::logic_error("a value without a text"); },
    });
}

std::string rowText(const PSSpecifier& row) {
    auto text = std::string(cellTypeName(row.cellType())) + ' ' + quoted(row.name());
    const auto add = [&](const char* name, const std::string& content) {
        if (!content.empty()) text += std::string(" ") + name + '=' + content;
    };
    const auto classText = [](const Class* held) { return held ? '<' + held->name() + '>' : ""; };
    add("id", row.identifier());
    add("set", row.setter());
    add("get", row.getter());
    add("action", row.buttonAction());
    add("detail", classText(row.detailControllerClass()));
    add("edit", classText(row.editPaneClass()));
    if (!row.titleDictionary().empty()) add("titles", titlesText(row.titleDictionary()));
    if (row.shortTitleDictionary() != row.titleDictionary())
        add("shortTitles", titlesText(row.shortTitleDictionary()));
    if (!row.values().empty()) {
        std::string values;
        for (const auto& value : row.values())
            values += (values.empty() ? "" : ",") + valueText(value);
        add("values", values);
    }
    for (const auto& [key, value] : row.properties())
        add(key.c_str(), valueText(value));
    return text;
}

std::vector<std::string> rowTexts(const PSSpecifierList& rows) {
    std::vector<std::string> texts;
    for (const auto& row : rows)
        texts.push_back(rowText(*row));
    return texts;
}

} // namespace prismo
