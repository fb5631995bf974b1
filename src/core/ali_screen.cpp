// screen: confirming, copying, renaming and deleting an alignment file; saving it; what is said about a
// loaded alignment.
#include "core/ali_screen.h"

#include "core/ali_reader.h"
#include "core/ali_writer.h"
#include "core/families.h"
#include "core/inf_file.h"
#include "core/store.h"
#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/process_end.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

namespace {

constexpr int question_line = 8;

std::string current_path()
{
    return dir_SEQ + file_ALI;
}

int refuse(const std::string& message)
{
    affich_avert(message, question_line);
    return escaped;
}

// ---- what can be done with a file -------------------------------------------------------------------------

constexpr std::string_view legend = "ENTER:Validate  ESCAPE:Cancel  DEL:Delete  INSER:Copy  F2:Rename";

// Opens the box and makes its inside the text window; the lines of the legend, which is longer than a narrow
// window: that one gets a box as wide as the screen, and higher.
std::vector<std::string> open_information_box()
{
    _setbgcolor(color::black);
    if (_nb_col - 10 >= static_cast<int>(legend.size())) {
        window_hp(7, 4, 14, _nb_col - 3, color::cyan);
        _settextwindow(8, 6, 13, _nb_col - 5);
        return {std::string(legend)};
    }
    auto rows = wrap_text(legend, _nb_col - 4);
    const int last = 13 + static_cast<int>(rows.size());
    window_hp(7, 1, last, _nb_col, color::cyan);
    _settextwindow(8, 3, last - 1, _nb_col - 2);
    return rows;
}

void show_information(const AliCheck& check)
{
    const auto legend_rows = open_information_box();
    const auto outtext_cut = [](int line, int column, int c, std::string_view text) {
        outtext_at(line, column, c, text.substr(0, static_cast<std::size_t>(y2_win - y1_win + 2 - column)));
    };
    outtext_cut(1, 1, color::light_green, file_ALI + " modified on " + date_fichier(current_path()));
    outtext_cut(2, 1, color::light_grey, "Molecule:");
    outtext_cut(2, 11, color::light_green, check.molecule);
    outtext_cut(3, 1, color::light_grey, "Domain:");
    outtext_cut(3, 9, color::light_green, check.domaine);
    outtext_cut(
        4, 1, color::light_green,
        text_format("There are %d sequences containing %d characters", check.nb_spec, check.nb_nuc_tot));
    int line = 6;
    for (const auto& row : legend_rows)
        outtext_at(line++, 1, color::light_cyan, row);
}

int load_checked(const AliCheck& check)
{
    affich_progress("WORK IN PROGRESS", 7, 30, 52, color::yellow);
    if (const auto error = load_ali(current_path(), check); !error.empty()) return refuse(error);
    read_inf_scores(with_extension(current_path(), ".inf"));
    return ok;
}

int delete_file()
{
    if (confirme("Do you really want to delete " + current_path(), question_line) != answer_yes)
        return escaped;
    if (const auto problem = cannot_write(dir_SEQ, 0); !problem.empty()) return refuse(problem);
    if (exists(current_path()) && std::remove(current_path().c_str()) != 0)
        return refuse(file_problem("Problem in deleting file", current_path(), errno));
    return reread;
}

// The path that the user gives for a copy or a new name, or "".
std::string ask_target()
{
    std::string name;
    if (saisir_nom_fichier("File name (.ali):", name, "ali", dir_SEQ, NameMode::write, question_line) ==
        escaped)
        return "";
    return dir_SEQ + name;
}

// The copy is complete before a file of that name goes; nothing is lost when anything fails.
int rename_file()
{
    const std::string target = ask_target();
    if (target.empty()) return escaped;
    if (same_file(current_path(), target)) return reread;
    if (const auto problem = copy_file_safely(current_path(), target); !problem.empty())
        return refuse(problem);
    if (std::remove(current_path().c_str()) != 0)
        return refuse(file_problem("Problem in deleting file", current_path(), errno));
    return reread;
}

int copy_file()
{
    const std::string target = ask_target();
    if (target.empty()) return escaped;
    affich_progress("WRITING IN PROGRESS", question_line, 30, 52, color::yellow);
    if (same_file(current_path(), target)) return reread;
    if (const auto problem = copy_file_safely(current_path(), target); !problem.empty())
        return refuse(problem);
    return reread;
}

} // namespace

int confirm_choice_File_ALI()
{
    affich_progress("NOW READING", 7, 30, 50, color::yellow);
    const auto check = check_ali(current_path());
    for (int i = 0; i < check.recoded; i++)
        affich_avert("A character encoded by B or Z has been recoded by X", 10);
    if (!check.error.empty()) return refuse(check.error);

    show_information(check);
    for (;;) {
        switch (GrKeyRead()) {
        case key::enter:
            return load_checked(check);
        case key::escape:
            return escaped;
        case key::del:
            return delete_file();
        case key::f2:
            return rename_file();
        case key::insert:
            return copy_file();
        default:
            break;
        }
    }
}

// ---- saving -----------------------------------------------------------------------------------------------

void write_file_ALI()
{
    affich_progress("WRITING IN PROGRESS", 5, 30, 52, color::yellow);
    const auto problem = save_ali();
    _clearscreen(1);
    if (problem.empty())
        mark_saved();
    else
        affich_avert(problem, 5);
}

int verif_sauvegarde()
{
    if (modif != 0) return ok;
    ring_bell();
    switch (confirme("Do you want to save your modifications?", 10)) {
    case answer_yes:
        write_file_ALI();
        return modif == 0 ? escaped : ok;
    case answer_no:
        return ok;
    default:
        return escaped;
    }
}

// ---- families ---------------------------------------------------------------------------------------------

void identify_family()
{
    const auto result = derive_families();
    if (result == FamilyResult::too_many) erreur_fatale("Too many paralog families. Increase MAXFAMILY");
    if (result == FamilyResult::single_ignored)
        affich_avert("There is only one family that is not taken into account", 5);
}

} // namespace kq
