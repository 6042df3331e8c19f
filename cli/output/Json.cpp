#include "cli/output/Json.h"

#include "platform/foundation/Date.h"
#include "platform/foundation/Overloaded.h"
#include "platform/text/Number.h"
#include "platform/text/Printable.h"
#include "platform/uikit/graphics/UIImage.h"

namespace prismo::cli {

using nlohmann::ordered_json;

namespace {

/// JSON escapes only the control characters below U+0020; those from U+007F to U+009F control a terminal too.
std::string withoutControls(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<unsigned char>(text[i]);
        if (code == 0xC2 && static_cast<unsigned char>(text[i + 1]) < 0xA0)
            code = static_cast<unsigned char>(text[++i]);
        else if (code != 0x7F) {
            result += text[i];
            continue;
        }
        result += "\\u00" + hexText(code);
    }
    return result;
}

} // namespace

ordered_json textOrNull(const std::string& text) {
    return text.empty() ? ordered_json() : ordered_json(text);
}

ordered_json json(const Value& value) {
    return value.visit(Overloaded{
        [](std::monostate) { return ordered_json(); },
        [](const Array& array) {
            ordered_json result = ordered_json::array();
            for (const auto& element : array)
                result.push_back(json(element));
            return result;
        },
        [](const Dictionary& dictionary) {
            ordered_json result = ordered_json::object();
            for (const auto& [key, element] : dictionary)
                result[key] = json(element);
            return result;
        },
        [](Date date) { return textOrNull(dateText(date)); },
        [](const Data& data) {
            return ordered_json{{"data", hexText(data)}};
        },
        [](Uid uid) {
            return ordered_json{{"uid", uid.index}};
        },
        [](const Class* objectClass) { return ordered_json(objectClass->name()); },
        [](const std::shared_ptr<NSObject>& object) {
            if (const auto* image = dynamic_cast<const UIImage*>(object.get()))
                return ordered_json{{"image", {image->size().width, image->size().height}}};
            return ordered_json(object->isa().name());
        },
        [](const auto& plain) { return ordered_json(plain); },
    });
}

ordered_json json(const Effect& effect) {
    ordered_json result{{"kind", effect.kind}};
    for (const auto& [name, detail] : effect.details)
        result[name] = json(detail);
    return result;
}

ordered_json json(const std::vector<Effect>& effects) {
    ordered_json result = ordered_json::array();
    for (const auto& effect : effects)
        result.push_back(json(effect));
    return result;
}

std::string jsonText(const ordered_json& document) {
    return withoutControls(document.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
}

std::string effectLine(const Effect& effect) {
    std::string line = effect.kind;
    for (const auto* name : {"path", "name", "object", "method", "url"})
        if (const auto& detail = valueForKey(effect.details, name); !detail.isNothing())
            line += " " + detail.text();
    if (const auto* arguments = valueForKey(effect.details, "argv").as<Array>())
        for (std::size_t i = 1; i < arguments->size(); ++i)
            line += " " + (*arguments)[i].text();
    return printable(line);
}

} // namespace prismo::cli
