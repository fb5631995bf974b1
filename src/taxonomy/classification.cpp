// format: reads what an information (.inf) file says about the classification of sequences.
#include "taxonomy/classification.h"

#include "core/multi_search.h"
#include "screen/strings.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <cstddef>

namespace kq {

namespace {

constexpr std::size_t longest_classification = 10000; // characters; real ones have hundreds

bool has_classification(std::string_view line)
{
    return line.find("[SYS]") != std::string_view::npos;
}

// The classification that these lines begin with.
std::string joined(std::span<const std::string_view> lines)
{
    std::string text;
    for (const std::string_view line : lines) {
        if (line.empty() || (!text.empty() && line.starts_with('['))) break;
        if (!text.empty()) text += ' ';
        text += line;
        if (text.size() > longest_classification) text.resize(longest_classification);
        if (text.size() == longest_classification) break;
    }
    return text;
}

} // namespace

std::string_view accession_of(std::string_view identifier)
{
    const std::size_t at = identifier.find('@');
    return at == std::string_view::npos ? std::string_view{} : identifier.substr(at + 1);
}

std::string classification_in(std::span<const std::string_view> lines)
{
    return joined({std::ranges::find_if(lines, has_classification), lines.end()});
}

std::string classification_of(std::string_view inf, std::string_view accession)
{
    const std::size_t found = accession.empty() ? std::string_view::npos : inf.find(accession);
    if (found == std::string_view::npos) return "";
    inf.remove_prefix(found);
    take_line(inf);
    std::vector<std::string_view> lines;
    while (!inf.empty() && (lines.empty() || !lines.back().empty()))
        lines.push_back(take_line(inf));
    return classification_in(lines);
}

std::vector<std::string> classifications_of(std::string_view inf,
                                            std::span<const std::string_view> accessions)
{
    std::vector<std::string_view> lines;
    std::vector<std::ptrdiff_t> stops; // lines with a classification, lines that close a record
    while (!inf.empty()) {
        const std::string_view line = take_line(inf);
        if (line.empty() || has_classification(line)) stops.push_back(std::ssize(lines));
        lines.push_back(line);
    }
    std::vector<std::string> classifications;
    for (const int line : first_containing(accessions, lines)) {
        const auto stop = line < 0 ? stops.end() : std::ranges::upper_bound(stops, line);
        classifications.push_back(stop == stops.end() ? "" : joined({lines.begin() + *stop, lines.end()}));
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
