// format: scripts of keys, played by the memory driver.
#include "raster/key_script.h"

#include "raster/key_names.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace kq {

namespace {

constexpr int max_count = 1000000;

bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool is_screen_name(std::string_view name)
{
    const auto allowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
               c == '-' || c == '.';
    };
    return !name.empty() && name.front() != '.' && std::all_of(name.begin(), name.end(), allowed);
}

class Parser {
public:
    explicit Parser(std::string_view text)
        : text_(text)
    {
    }

    KeyScript run()
    {
        for (std::string_view word = next_word(); !word.empty(); word = next_word())
            statement(word);
        return std::move(script_);
    }

private:
    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
    KeyScript script_;

    void mistake(const std::string& what)
    {
        script_.mistakes.push_back("line " + std::to_string(line_) + ": " + what);
    }

    void skip_blanks_and_comments()
    {
        while (at_ < text_.size()) {
            if (text_[at_] == '#') {
                at_ = std::min(text_.find('\n', at_), text_.size());
            } else if (is_blank(text_[at_])) {
                if (text_[at_++] == '\n') line_++;
            } else {
                return;
            }
        }
    }

    // The next word, a quoted text with its quotes and its repeat; empty at the end.
    std::string_view next_word()
    {
        skip_blanks_and_comments();
        const std::size_t start = at_;
        if (at_ < text_.size() && text_[at_] == '"') skip_quoted();
        while (at_ < text_.size() && !is_blank(text_[at_]))
            at_++;
        return text_.substr(start, at_ - start);
    }

    // Leaves at_ behind the closing quote, or at the line's end when there is none.
    void skip_quoted()
    {
        for (at_++; at_ < text_.size() && text_[at_] != '\n'; at_++) {
            if (text_[at_] == '"') {
                at_++;
                return;
            }
            if (text_[at_] == '\\' && at_ + 1 < text_.size() && text_[at_ + 1] != '\n') at_++;
        }
    }

    void statement(std::string_view word)
    {
        if (word == "screen") {
            const std::string name(next_word_on_line());
            if (is_screen_name(name))
                script_.steps.push_back({.kind = ScriptStep::screen, .codes = {}, .name = name});
            else
                mistake("\"screen\" needs a name of letters, digits, \"_\", \"-\" and \".\", not \"" + name +
                        "\"");
            return;
        }
        const bool early = word == "early";
        if (early) word = next_word_on_line();
        auto step = word.starts_with('"') ? quoted_step(word) : key_step(word);
        if (!step) return;
        step->early = early;
        script_.steps.push_back(*std::move(step));
    }

    std::string_view next_word_on_line()
    {
        while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t'))
            at_++;
        return at_ < text_.size() && !is_blank(text_[at_]) && text_[at_] != '#' ? next_word()
                                                                                : std::string_view();
    }

    std::optional<ScriptStep> key_step(std::string_view word)
    {
        ScriptStep step;
        const std::size_t star = word.rfind('*');
        if (word.size() > 1 && star != std::string_view::npos && star > 0) {
            if (!read_count(word.substr(star + 1), step.count)) return {};
            word = word.substr(0, star);
        }
        const int code = key_code(word);
        if (code == 0) {
            mistake("there is no key \"" + std::string(word) + "\"");
            return {};
        }
        step.codes = {code};
        return step;
    }

    std::optional<ScriptStep> quoted_step(std::string_view word)
    {
        ScriptStep step;
        std::size_t i = 1;
        for (; i < word.size() && word[i] != '"'; i++) {
            if (word[i] == '\\' && i + 1 < word.size()) i++;
            step.codes.push_back(static_cast<unsigned char>(word[i]));
        }
        if (i >= word.size()) {
            mistake("the quoted text has no end");
            return {};
        }
        const std::string_view rest = word.substr(i + 1);
        if (rest.starts_with('*')) {
            if (!read_count(rest.substr(1), step.count)) return {};
        } else if (!rest.empty()) {
            mistake("\"" + std::string(rest) + "\" follows a quoted text without a blank");
            return {};
        }
        if (step.codes.empty()) return {};
        return step;
    }

    bool read_count(std::string_view digits, int& count)
    {
        const char* end = digits.data() + digits.size();
        const auto [stop, error] = std::from_chars(digits.data(), end, count);
        if (error == std::errc() && stop == end && count >= 1 && count <= max_count) return true;
        mistake("\"" + std::string(digits) + "\" is no number of times (1 to 1000000)");
        return false;
    }
};

} // namespace

KeyScript parse_key_script(std::string_view text)
{
    return Parser(text).run();
}

} // namespace kq
