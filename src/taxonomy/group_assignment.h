// screen: moving species to other groups, by hand and from their classification; the group file follows.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// The group of a move: chosen on the list of groups; or found in a classification text, with or without a
// report on the screen.
enum class MoveHow { chosen, reported, silent };

// Moves a species, and those that go along (see GroupMoves), to another group: first its line of the .nom
// file, then in memory. `group_shown` is the group whose species a screen lists, list_without_group or
// no_list (taxonomy/group_moves.h); species that leave the shown group leave the working list too.
// 0, or -1 when nothing was changed: no group was chosen or found, or the file could not be written, which is
// shown.
int change_groupe(int species, int group_shown, MoveHow how, std::string_view classification = {});

enum class AutoMode { interactive, batch };
enum AutoResult : int { auto_failed = 0, auto_done = 1, auto_group_empty = 3 };
// Moves the species to the group that its classification in the information file names. Interactive: with a
// report; auto_done with the species of the shown group listed anew, or auto_group_empty when none is left.
// Batch: silent. auto_done also for a species that is no longer in the shown group.
int change_groupe_auto(int species, int group_shown, AutoMode mode);
// Batch assignment of the whole working list: the sum of the results. The information file is read once, the
// .nom file written once, at the end: as single moves would have left it, its backup being the file before.
// When it cannot be written that is shown, and nothing has been moved.
int change_groupe_auto_list(int group_shown);

// Says that nothing is known from which the group of a species could be found.
void report_no_classification();

// Gives the species with this key (nom_key of its identifier) a line in the .nom file in use; empty on
// success, else what failed, and then the file is as it was.
std::string rewrite_group_line(std::string_view key, std::string_view group);

} // namespace kq
