// format: reads what an information (.inf) file says about the classification of sequences. Opens no box.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

// The accession in an identifier: the text after its first "@"; empty when there is none.
std::string_view accession_of(std::string_view identifier);

// The classification in these lines: the first that contains "[SYS]", joined by blanks with those that follow
// it, up to an empty one or one that begins with "["; of endless ones the beginning. Empty when there is
// none.
std::string classification_in(std::span<const std::string_view> lines);
// The classification of an accession in the text of a .inf file: that behind the first line with the
// accession, before the empty line that closes its record. Deliberate: no species gets the group of the next
// record when its own has no classification.
std::string classification_of(std::string_view inf, std::string_view accession);
// The same for each of many accessions, in one pass over the text.
std::vector<std::string> classifications_of(std::string_view inf,
                                            std::span<const std::string_view> accessions);

// The words of a classification that may name a group, the last first: in lower case but for their first
// letter, cut at their first "." or ";". The first word of the text ("[SYS]") is none of them.
std::vector<std::string> group_words(std::string_view classification);

} // namespace kq
