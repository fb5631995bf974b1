// format: reads what an information (.inf) file says about the classification of sequences.
#include "taxonomy/classification.h"

#include "core/multi_search.h"
#include "screen/strings.h"
#include "taxonomy/text_file.h"

#include <algorithm>

namespace kq {

namespace {

constexpr std::string_view classification_tag = "[SYS]";

// Takes the lines of a classification off the front of `text`, which begins with the first of them.
std::string joined_lines(std::string_view text)
{
    std::string joined(take_line(text));
    while (!text.empty() && !text.starts_with('[')) {
        joined += ' ';
        joined += take_line(text);
    }
    return joined;
}

std::size_t line_start(std::string_view text, std::size_t position)
{
    const std::size_t newline = text.substr(0, position).rfind('\n');
    return newline == std::string_view::npos ? 0 : newline + 1;
}

} // namespace

std::string_view accession_of(std::string_view identifier)
{
    const std::size_t at = identifier.find('@');
    return at == std::string_view::npos ? std::string_view{} : identifier.substr(at + 1);
}

std::string classification_of(std::string_view inf, std::string_view accession)
{
    if (accession.empty()) return "";
    const std::size_t found = inf.find(accession);
    const std::size_t end = found == std::string_view::npos ? found : inf.find('\n', found);
    if (end == std::string_view::npos) return "";
    const std::size_t tag = inf.find(classification_tag, end + 1);
    return tag == std::string_view::npos ? "" : joined_lines(inf.substr(line_start(inf, tag)));
}

std::vector<std::string> classifications_of(std::string_view inf,
                                            std::span<const std::string_view> accessions)
{
    std::vector<std::string_view> lines;
    std::vector<std::size_t> starts, tagged; // of all lines; of those with the tag
    for (std::string_view rest = inf; !rest.empty();) {
        starts.push_back(inf.size() - rest.size());
        lines.push_back(take_line(rest));
        if (lines.back().find(classification_tag) != std::string_view::npos) tagged.push_back(starts.back());
    }
    std::vector<std::string> classifications;
    for (const int line : first_containing(accessions, lines)) {
        if (line < 0) {
            classifications.emplace_back();
            continue;
        }
        const auto next = std::ranges::upper_bound(tagged, starts[static_cast<std::size_t>(line)]);
        classifications.push_back(next == tagged.end() ? "" : joined_lines(inf.substr(*next)));
    }
    return classifications;
}

std::vector<std::string> group_words(std::string_view classification)
{
    std::vector<std::string> words;
    for (std::size_t blank; (blank = classification.rfind(' ')) != std::string_view::npos;) {
        std::string word(classification.substr(blank + 1));
        classification = classification.substr(0, blank);
        word.resize(std::min(word.find_first_of(".;"), word.size()));
        if (word.empty()) continue;
        strlwr(word.data());
        if (word[0] >= 'a' && word[0] <= 'z') word[0] = static_cast<char>(word[0] - 'a' + 'A');
        words.push_back(std::move(word));
    }
    return words;
}

} // namespace kq
