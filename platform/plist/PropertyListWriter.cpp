#include "platform/plist/PropertyListWriter.h"

#include "platform/foundation/Date.h"
#include "platform/foundation/Overloaded.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/text/Number.h"
#include "platform/text/Utf8.h"

#include <cmath>
#include <string_view>
#include <utility>

namespace prismo {

namespace {

std::string realText(double number) {
    if (std::isnan(number)) return "nan";
    if (std::isinf(number)) return number < 0 ? "-infinity" : "+infinity";
    return shortestText(number);
}

std::string_view replacement(char c) {
    switch (c) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '&':
        return "&amp;";
    case '\r':
        return "&#13;"; // a bare one is a line feed to an XML reader
    default:
        return {};
    }
}

class XmlWriter {
  public:
    void write(const Value& value, int depth) {
        value.visit(Overloaded{
            [&](bool held) { line(depth, held ? "<true/>" : "<false/>"); },
            [&](std::int64_t held) { element(depth, "integer", std::to_string(held)); },
            [&](std::uint64_t held) { element(depth, "integer", std::to_string(held)); },
            [&](double held) { element(depth, "real", realText(held)); },
            [&](const std::string& held) { text(depth, "string", held); },
            [&](Date held) { date(depth, held); },
            [&](const Data& held) { data(depth, held); },
            [&](const Array& held) { array(depth, held); },
            [&](const Dictionary& held) { dictionary(depth, held); },
            [&](Uid held) { uid(depth, held); },
            [&](const auto&) { cause = "a value that no property list holds"; },
        });
    }

    void dictionary(int depth, const Dictionary& dictionary) {
        if (dictionary.empty()) return line(depth, "<dict/>");
        line(depth, "<dict>");
        for (const auto& [key, value] : dictionary) {
            text(depth + 1, "key", key);
            write(value, depth + 1);
        }
        line(depth, "</dict>");
    }

    std::string result;
    /// Why it cannot be written, in words; empty if it can.
    std::string cause;

  private:
    void indent(int depth) { result.append(static_cast<std::size_t>(depth), '\t'); }

    void line(int depth, std::string_view tag) {
        indent(depth);
        result.append(tag) += '\n';
    }

    void element(int depth, std::string_view name, std::string_view content) {
        indent(depth);
        ((result += '<').append(name) += '>').append(content);
        ((result += "</").append(name) += ">\n");
    }

    void text(int depth, std::string_view name, std::string_view content) {
        if (!isPlainUtf8(content))
            cause = "text that is not UTF-8, or holds a NUL";
        else if (!isXmlText(content))
            cause = "text with a character that XML does not have";
        if (content.find_first_of("<>&\r") == std::string_view::npos) return element(depth, name, content);
        std::string escaped;
        for (const char c : content) {
            const auto text = replacement(c);
            text.empty() ? void(escaped += c) : void(escaped += text);
        }
        element(depth, name, escaped);
    }

    void date(int depth, Date date) {
        const auto content = dateText(date);
        if (content.empty()) cause = "a date before the year 1 or after 9999";
        element(depth, "date", content);
    }

    void data(int depth, const Data& bytes) {
        constexpr std::string_view digits =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        indent(depth);
        result += "<data>";
        for (std::size_t i = 0; i < bytes.size(); i += 3) {
            const auto byte = [&](std::size_t at) { return at < bytes.size() ? bytes[at] : 0U; };
            const auto group = unsigned{bytes[i]} << 16 | byte(i + 1) << 8 | byte(i + 2);
            result += digits[group >> 18];
            result += digits[group >> 12 & 63];
            result += i + 1 < bytes.size() ? digits[group >> 6 & 63] : '=';
            result += i + 2 < bytes.size() ? digits[group & 63] : '=';
        }
        result += "</data>\n";
    }

    void uid(int depth, Uid held) {
        const Dictionary reference{{"CF$UID", held.index}};
        dictionary(depth, reference);
    }

    void array(int depth, const Array& values) {
        if (values.empty()) return line(depth, "<array/>");
        line(depth, "<array>");
        for (const auto& value : values)
            write(value, depth + 1);
        line(depth, "</array>");
    }
};

} // namespace

Result<std::string> xmlText(const Dictionary& dictionary, const std::string& path) {
    const auto unwritable = [&](std::string cause) {
        return Problem{Problem::Kind::unwritable, path, std::move(cause)};
    };
    XmlWriter writer;
    writer.result = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                    "<plist version=\"1.0\">\n";
    writer.dictionary(0, dictionary);
    writer.result += "</plist>\n";
    if (!writer.cause.empty()) return unwritable(writer.cause);
    if (judgeXml(writer.result) != Verdict::safe)
        return unwritable("more than a property list may hold here");
    return std::move(writer.result);
}

} // namespace prismo
