// format: changes lines of a species-to-group (.nom) file.
#include "taxonomy/nom_file.h"

#include "core/store.h"
#include "screen/files.h"
#include "screen/safe_replace.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <deque>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kq {

namespace {

std::string_view without_trailing_blanks(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1); // npos + 1 is 0
}

std::string_view name_of(std::string_view line)
{
    return without_trailing_blanks(line.substr(0, line.find(','))).substr(0, identifier_size - 1);
}

// Lower case, for comparing.
std::string folded(std::string_view name)
{
    std::string text(name);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

// The lines of a file with what replaces them and what goes in between them. A change takes the logarithm of
// the number of lines, so that many can be made to a large file.
class NomText {
public:
    explicit NomText(std::string_view text)
    {
        while (!text.empty()) {
            const std::string_view before = text;
            const std::string_view name = name_of(take_line(text));
            lines_.push_back({before.substr(0, before.size() - text.size()), {}});
            own_.try_emplace(std::string(name), &lines_.back().replacement);
            std::string fold = folded(name);
            if (!highest_.empty() && fold < highest_.back()) fold = highest_.back();
            highest_.push_back(std::move(fold));
        }
    }
    void set(const GroupLine& change)
    {
        const std::string key(without_trailing_blanks(change.key));
        std::string line = key + " , " + change.group + "\n";
        if (const auto own = own_.find(key); own != own_.end()) {
            *own->second = std::move(line);
            return;
        }
        // Lines added before one place sort before the line there: among them only their own order matters.
        const std::string fold = folded(key);
        const auto after = std::ranges::partition_point(
            highest_, [&fold](const std::string& highest) { return highest <= fold; });
        const auto added = added_.emplace(std::pair(after - highest_.begin(), fold), std::move(line));
        own_.emplace(key, &added->second);
    }
    std::string text() const
    {
        std::string all;
        auto added = added_.begin();
        for (std::ptrdiff_t i = 0; i <= std::ssize(lines_); i++) {
            for (; added != added_.end() && added->first.first == i; ++added) {
                if (!all.empty() && all.back() != '\n') all += '\n';
                all += added->second;
            }
            if (i == std::ssize(lines_)) break;
            const Line& line = lines_[static_cast<std::size_t>(i)];
            all += line.replacement.empty() ? line.original : std::string_view(line.replacement);
        }
        return all;
    }

private:
    struct Line {
        std::string_view original; // with its newline
        std::string replacement;   // empty: stays
    };
    std::deque<Line> lines_;
    // The highest name, folded, up to each line. The first line that sorts after a name is the first at which
    // the highest one does.
    std::vector<std::string> highest_;
    std::multimap<std::pair<std::ptrdiff_t, std::string>, std::string> added_; // before which line, name
    std::unordered_map<std::string, std::string*> own_; // where a name's line is to be replaced
};

} // namespace

bool fits_in_nom_line(std::string_view key)
{
    return key.find_first_of(",\n") == std::string_view::npos;
}

std::string with_group_lines(std::string_view text, std::span<const GroupLine> changes)
{
    NomText nom(text);
    for (const GroupLine& change : changes)
        nom.set(change);
    return nom.text();
}

std::string rewrite_nom_file(const std::string& path, std::span<const GroupLine> changes)
{
    const std::string backup = with_extension(path, ".bak");
    const DirectoryLock lock(directory_of(path));
    if (!lock.held()) return DirectoryLock::refusal(directory_of(path));
    std::string text;
    if (auto problem = read_whole_file(path, text); !problem.empty()) return problem;
    text = with_group_lines(text, changes);
    if (auto problem = cannot_replace(path, backup, text.size()); !problem.empty()) return problem;

    NewFile fresh(path, directory_of(path) + "KQ_NOM.TMP");
    fresh.write(text);
    return replace_file(fresh, path, backup, directory_of(backup) + "KQ_NOMBAK.TMP");
}

} // namespace kq
