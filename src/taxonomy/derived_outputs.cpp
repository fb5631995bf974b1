// screen: files written from the ensembles for other programs.
#include "taxonomy/derived_outputs.h"

#include "core/ali_screen.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/ensemble_columns.h"
#include "core/kel_file.h"
#include "core/options.h"
#include "core/reduced_ali.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/process.h"
#include "screen/process_end.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace kq {

std::string file_KEL;

namespace {

constexpr int menu_line = 10, prompt_line = 5;
constexpr std::string_view no_columns = "There are no more nucleotides";
const std::string working_directory = "./";

void show_progress()
{
    affich_progress("WRITING IN PROGRESS", prompt_line, 30, 52, color::yellow);
}

// The problem in a warning, if there is one; what the output returns.
int report(const std::string& problem)
{
    if (problem.empty()) return ok;
    affich_avert(problem, prompt_line);
    return escaped;
}

// The alignment's name up to its first ".".
std::string alignment_stem()
{
    return file_ALI.substr(0, file_ALI.find('.'));
}

// ---- rows -------------------------------------------------------------------------------------------------

// How a species is called in a file.
enum class Naming { identifier, with_new_mark, with_group };

std::string_view group_of(int species)
{
    const int group = no_groupe[static_cast<std::size_t>(species)];
    return group >= 0 && group < nb_groupe ? group_name(group) : "";
}

std::string output_name(int species, Naming naming)
{
    const std::string_view name = identifier(species);
    switch (naming) {
    case Naming::with_group:
        return std::string(name.substr(0, name.find('@'))).append("@").append(group_of(species));
    case Naming::with_new_mark:
        return std::string(name) + (new_est[static_cast<std::size_t>(species)] == -1 ? "#NEW#" : "");
    default:
        return std::string(name);
    }
}

void append_members(std::vector<OutputRow>& rows, int ensemble, Naming naming)
{
    for (const int species : members(ensemble)) {
        const auto text = row(species);
        rows.push_back({output_name(species, naming), {text.data(), text.size()}});
    }
}

// The consensus of each ensemble as it is now. Afterwards every ensemble is shown species by species.
std::vector<OutputRow> consensus_rows()
{
    std::vector<OutputRow> rows;
    for (int e = 0; e < nb_ens; e++) {
        set_collapsed(e, true);
        compute_consensus(e);
        set_collapsed(e, false);
        rows.push_back(
            {text_format(">Ensemble%d|%s", e + 1, ens_names[e]), seq_cons[static_cast<std::size_t>(e)]});
    }
    return rows;
}

// About as many bytes as the rows take in a file, or rather more.
unsigned long long room_for(std::size_t rows, const ColumnSubset& columns)
{
    const auto shown = static_cast<unsigned long long>(columns.count());
    return rows * (shown + 2 * identifier_size) + 8 * shown + 1024;
}

ColumnSubset shown_columns()
{
    return ColumnSubset(hidden_columns(all_ensembles(), opt_nogap != 0));
}

std::size_t number_of_members()
{
    std::size_t count = 0;
    for (int e = 0; e < nb_ens; e++)
        count += members(e).size();
    return count;
}

// ---- the menu of outputs ----------------------------------------------------------------------------------

struct Output {
    std::string_view label;
    bool kel; // else a reduced .ali
    Naming naming;
    bool consensus = false;
    bool runs_kel = false;
};

constexpr Output outputs[] = {
    {"Writing selected sequences in file .kel", true, Naming::identifier},
    {"Writing selected sequences in file .ali", false, Naming::identifier},
    {"Writing selected sequences in file .ali (keeping #NEW#)", false, Naming::with_new_mark},
    {"Writing selected sequences in file .kel (group name after @)", true, Naming::with_group},
    {"Writing consensus sequences in file .kel", true, Naming::identifier, true},
    {"Writing selected sequences in file .kel and execute kel", true, Naming::identifier, false, true},
};

KelHeader kel_header()
{
    return {file_ALI, date_fichier(dir_SEQ + file_ALI), file_KEL, date(), file_COL, file_NOM, type_seq};
}

// Writes the file that file_KEL names; what speaks against it, or "".
std::string write_output(const Output& output)
{
    const ColumnSubset columns = shown_columns();
    if (columns.count() == 0) return std::string(no_columns);
    const std::string& directory = output.kel ? working_directory : dir_SEQ;
    const auto count = output.consensus ? static_cast<std::size_t>(nb_ens) : number_of_members();
    if (auto problem = cannot_write(directory, room_for(count, columns)); !problem.empty()) return problem;

    NewFile file(directory + file_KEL);
    if (!file.error().empty()) return file.error(); // before the display changes
    std::vector<OutputRow> rows;
    if (output.consensus)
        rows = consensus_rows();
    else
        for (int e = 0; e < nb_ens; e++)
            append_members(rows, e, output.naming);
    if (output.kel)
        write_kel(file, kel_header(), rows, columns);
    else
        write_reduced_ali(file, molecule, domaine, rows, columns);
    return file.commit() ? "" : file.error();
}

} // namespace

int choice_fichier_kel()
{
    if (verif_sauvegarde() == escaped) return escaped;
    std::string name = alignment_stem();
    if (saisir_nom_fichier("File name (.kel):", name, "kel", "", NameMode::write, prompt_line) == escaped)
        return escaped;
    file_KEL = name;
    return ok;
}

int choice_fichier_ali()
{
    if (verif_sauvegarde() == escaped) return escaped;
    std::string name = alignment_stem();
    for (;;) {
        if (saisir_nom_fichier("File name (.ali):", name, "ali", dir_SEQ, NameMode::write, prompt_line) ==
            escaped)
            return escaped;
        // The whole alignment would be lost, with the user still working on it.
        if (!same_file(dir_SEQ + name, dir_SEQ + file_ALI)) break;
        affich_avert("The file " + name + " is the alignment you are working on", prompt_line);
    }
    file_KEL = name;
    return ok;
}

int write_file_kel_ali()
{
    constexpr int width = 64;
    std::array<std::string_view, std::size(outputs)> labels;
    std::transform(std::begin(outputs), std::end(outputs), labels.begin(),
                   [](const Output& output) { return output.label; });
    const int chosen = _choice_option(menu_line, 0, labels, width);
    if (chosen == escaped) return escaped;
    const Output& output = outputs[chosen];
    if ((output.kel ? choice_fichier_kel() : choice_fichier_ali()) == escaped) return escaped;

    show_progress();
    const std::string problem = write_output(output);
    _clearscreen(1);
    if (report(problem) == escaped) return escaped;
    if (output.runs_kel && !replace_program(dir_ZOLTEXE + "kel"))
        erreur_fatale("There is not enough memory to load KEL");
    return ok;
}

// ---- one file for each ensemble ---------------------------------------------------------------------------

namespace {

std::string write_each_ensemble()
{
    const ColumnSubset columns = shown_columns();
    if (columns.count() == 0) return std::string(no_columns);
    if (auto problem = cannot_write(working_directory, room_for(number_of_members(), columns));
        !problem.empty())
        return problem;
    for (int e = 0; e < nb_ens; e++) {
        std::vector<OutputRow> rows;
        append_members(rows, e, Naming::identifier);
        NewFile file(working_directory + alignment_stem() + std::to_string(e) + ".ali");
        write_reduced_ali(file, molecule, domaine, rows, columns);
        if (!file.commit()) return file.error();
    }
    return "";
}

} // namespace

void write_multiple_ali()
{
    _setbgcolor(color::black);
    window_hp(3, 20, 7, 60, color::yellow);
    outtext_inside(2, 3, color::yellow, text_format("WRITING %d .ali FILES IN PROGRESS", nb_ens));
    present_screen();
    if (const std::string problem = write_each_ensemble(); !problem.empty()) {
        _clearscreen(1);
        affich_avert(problem, prompt_line);
        return;
    }
    outtext_inside(4, 3, color::light_cyan, "Press any key to continue . . .");
    GrKeyRead();
    _clearscreen(1);
}

// ---- species and their groups -----------------------------------------------------------------------------

namespace {

std::string write_species_groups(const std::string& path)
{
    std::vector<std::string> lines;
    for (int species = 0; species < nb_spec; species++)
        lines.push_back(std::string(identifier(species)).append(" , ").append(group_of(species)));
    std::sort(lines.begin(), lines.end()); // by unsigned bytes, whatever the locale
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append("\n");
    return write_file_safely(path, text);
}

} // namespace

int write_file_nom()
{
    std::string name;
    for (;;) {
        if (saisir_nom_fichier("File name (.nom):", name, "nom", working_directory, NameMode::write,
                               prompt_line) == escaped)
            return escaped;
        // Its names are whole identifiers: read as the file of groups, it would send all species to the
        // cupboard.
        if (!same_file(working_directory + name, file_NOM)) break;
        affich_avert("The file " + name + " is the group file you are working with", prompt_line);
    }
    show_progress();
    const std::string problem = write_species_groups(working_directory + name);
    _clearscreen(1);
    return report(problem);
}

} // namespace kq
