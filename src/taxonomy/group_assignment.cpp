// screen: moving species to other groups, by hand and from their classification; the group file follows.
#include "taxonomy/group_assignment.h"

#include "core/store.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "taxonomy/classification.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/group_files.h"
#include "taxonomy/group_list.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/nom_file.h"
#include "taxonomy/selection.h"
#include "taxonomy/text_file.h"

#include <vector>

namespace kq {

namespace {

constexpr int warning_line = 10;

// The information file of the alignment; empty when there is none that can be read.
std::string information()
{
    std::string text;
    read_whole_file(with_extension(dir_SEQ + file_ALI, ".inf"), text);
    return text;
}

// Why a species' line cannot be in the .nom file, or "".
std::string cannot_hold(std::string_view key)
{
    if (fits_in_nom_line(key)) return "";
    return "The file " + file_NOM + " can not hold a name with a comma (" + std::string(key) + ")";
}

// The group that the species is to go to; -1 = none.
int target_group(MoveHow how, std::string_view classification)
{
    if (how == MoveHow::chosen) return choose_group();
    const int group = GroupNames().find_first(group_words(classification));
    if (group < 0 && how == MoveHow::reported)
        affich_avert("There is no corresponding name of group in the frame", warning_line);
    return group;
}

} // namespace

std::string rewrite_group_line(std::string_view key, std::string_view group)
{
    if (auto problem = cannot_hold(key); !problem.empty()) return problem;
    const GroupLine line{std::string(key), std::string(group)};
    return rewrite_nom_file(file_NOM, {&line, 1});
}

int change_groupe(int species, int group_shown, MoveHow how, std::string_view classification)
{
    const int group = target_group(how, classification);
    if (group < 0) return escaped;
    const std::string problem = rewrite_group_line(nom_key(identifier(species)), group_name(group));
    if (!problem.empty()) {
        affich_avert(problem, warning_line);
        return escaped;
    }
    GroupMoves moves(group_shown);
    moves.move(species, group);
    moves.update_list();
    if (how == MoveHow::reported)
        affich_avert(
            text_format("%s is now in the group %s", std::string(identifier(species)).c_str(), groupe[group]),
            warning_line);
    return ok;
}

void report_no_classification()
{
    affich_avert("It is impossible to automatically affect this species to a group", warning_line);
}

int change_groupe_auto(int species, int group_shown, AutoMode mode)
{
    if (group_shown >= 0 && !ShownGroup(group_shown).holds(species)) return auto_done;
    const std::string classification = classification_of(information(), accession_of(identifier(species)));
    if (mode == AutoMode::batch)
        return change_groupe(species, group_shown, MoveHow::silent, classification) == ok ? auto_done
                                                                                          : auto_failed;
    if (!classification.starts_with("[SYS]")) {
        report_no_classification();
        return auto_failed;
    }
    if (change_groupe(species, group_shown, MoveHow::reported, classification) != ok) return auto_failed;
    if (group_shown < 0) return auto_done;
    if (nb_spec_gro == 0) return auto_group_empty;
    list_species_of_group(group_shown);
    return auto_done;
}

int change_groupe_auto_list(int group_shown)
{
    const std::vector<int> list(working_list().begin(), working_list().end());
    std::vector<std::string_view> accessions;
    for (const int species : list)
        accessions.push_back(accession_of(identifier(species)));
    const auto classifications = classifications_of(information(), accessions);

    const GroupNames names;
    GroupMoves moves(group_shown);
    std::vector<GroupLine> lines;
    std::string problem;
    int done = 0;
    for (std::size_t i = 0; i < list.size(); i++) {
        const int species = list[i];
        if (group_shown >= 0 && !moves.shown(species)) {
            done++;
            continue;
        }
        const int group = names.find_first(group_words(classifications[i]));
        if (group < 0) continue;
        const std::string_view key = nom_key(identifier(species));
        if (!fits_in_nom_line(key)) {
            problem = cannot_hold(key);
            continue;
        }
        moves.move(species, group);
        lines.push_back({std::string(key), std::string(group_name(group))});
        done++;
    }
    if (!lines.empty())
        if (const auto failure = rewrite_nom_file(file_NOM, lines); !failure.empty()) {
            moves.undo();
            problem = failure;
            done = 0;
        }
    if (!problem.empty()) affich_avert(problem, warning_line);
    moves.update_list();
    return done;
}

} // namespace kq
