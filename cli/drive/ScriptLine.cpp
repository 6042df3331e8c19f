#include "cli/drive/ScriptLine.h"

#include "cli/output/CommandError.h"

#include <optional>

namespace prismo::cli {

namespace {

class WordReader {
  public:
    explicit WordReader(std::string_view line) : rest_(line) {}

    std::vector<std::string> read() {
        while (skipSpace())
            words_.push_back(word());
        return std::move(words_);
    }

  private:
    static bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r'; }

    /// False at the end of the line or at a comment.
    bool skipSpace() {
        while (!rest_.empty() && isSpace(rest_.front()))
            rest_.remove_prefix(1);
        return !rest_.empty() && !isComment();
    }

    bool isComment() const {
        return rest_.front() == '#' && (words_.empty() || rest_.size() == 1 || isSpace(rest_[1]));
    }

    char take(const char* unfinished) {
        if (rest_.empty()) throw CommandError(wrongUsage, unfinished);
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    std::string word() {
        std::string result;
        while (!rest_.empty() && !isSpace(rest_.front())) {
            const char c = take("");
            if (c == '\'') {
                quoted(result);
            } else if (c == '"') {
                doubleQuoted(result);
            } else {
                result += c == '\\' ? take("the line ends in a backslash") : c;
            }
        }
        return result;
    }

    void quoted(std::string& result) {
        for (char c = take(openQuote); c != '\''; c = take(openQuote))
            result += c;
    }

    void doubleQuoted(std::string& result) {
        for (char c = take(openQuote); c != '"'; c = take(openQuote)) {
            if (c == '\\' && !rest_.empty() &&
                std::string_view("\"\\$`").find(rest_.front()) != std::string_view::npos)
                c = take(openQuote);
            result += c;
        }
    }

    static constexpr const char* openQuote = "a quote is left open";
    std::string_view rest_;
    std::vector<std::string> words_;
};

} // namespace

std::vector<std::string> scriptWords(std::string_view line) { return WordReader(line).read(); }

} // namespace prismo::cli
