// Small random alignments with everything in them that an analysis has to get right, and the way into the
// store.
#pragma once

#include "core/options.h"
#include "editor/editor_test.h"
#include "screen/files.h"
#include "support/plain_analysis.h"
#include "taxonomy/frame_files.h"

#include <filesystem>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace kq::test {

class RandomAnalysis {
public:
    explicit RandomAnalysis(unsigned seed)
        : random_(seed)
    {
    }

    plain::Analysis make()
    {
        plain::Analysis made;
        made.file = pick<std::string>(
            {"x.ali", "two words.ali", "it's $b-c.d.ali", std::string(80, 'n') + "2.ali", ".ali"});
        made.file_date = "2 January 2006 at 15 hours 4";
        made.today = "Wednesday 16 May 2007 at 8 hours 0";
        made.colours = "/d/zolt/data/five.col";
        made.groups = "/d/zolt/data/five.nom";
        made.type = below(2);
        made.columns = pick({1, 13, 50, 60, 90 + below(500)});
        made.identifier_option = below(3);
        made.all_columns_shown = below(4) == 0;
        make_species(made);
        make_ensembles(made);
        for (auto& row : made.identity)
            for (double& weight : row)
                weight = below(4) ? 1 : below(1000) / 1000.0;
        made.level = pick({1, 2, 3, 3, 3});
        made.percent = pick({0, 5, 100, below(101)});
        made.shape = pick({0.5, 0.03, 1.0, 7.25, 1000.0});
        return made;
    }

private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    template <class Value>
    Value pick(std::initializer_list<Value> values)
    {
        return values.begin()[below(static_cast<int>(values.size()))];
    }
    char letter(std::string_view letters)
    {
        return letters[static_cast<std::size_t>(below(static_cast<int>(letters.size())))];
    }

    // Few first words, so that PHYLIP names meet.
    std::string identifier()
    {
        std::string name =
            pick<std::string>({"Homo", "H", "Escherichia", "Escherichi0", "O'Brien \"q\"", ""});
        if (below(4))
            name += pick<std::string>({" ", " ", "  "}) + pick<std::string>({"coli", "sapiens", ""});
        if (below(2)) name += pick<std::string>({"@X123", " K12 (b)", " ", std::string(70, 'z')});
        return name.substr(0, 79);
    }

    // Rows that descend from one, closely or hardly at all, with everything else strewn over them.
    void make_species(plain::Analysis& made)
    {
        const std::string residues =
            made.type ? "ACDEFGHIKLMNPQRSTVWY" : pick<std::string>({"ACGU", "ACGT", "ACGTU", "AC"});
        const std::string others = made.type ? "BZXJOacd?$-* " : "RYMWSKVHDBNX?acgtuE$-* ";
        const int distance = pick({1, 5, 30, 100}), odd = pick({0, 1, 10});
        std::string ancestor;
        for (int p = 0; p < made.columns; p++)
            ancestor += letter(residues);
        // Few, or so many that numbers of two digits end PHYLIP names.
        const int most = made.columns < 60 ? 120 : 12;
        for (int i = pick({below(4), 4 + below(12), 4 + below(12), 4 + below(most)}); i >= 0; i--) {
            std::string row = ancestor;
            for (char& c : row) {
                if (below(100) < distance) c = letter(residues);
                if (below(100) < odd) c = letter(others);
                if (below(100) < odd) c = letter("-*$ ");
            }
            if (below(3) == 0) row.resize(static_cast<std::size_t>(below(made.columns + 1)));
            made.species.push_back({identifier(), row});
        }
        made.species[0].row.resize(static_cast<std::size_t>(made.columns), '*');
    }

    void make_ensembles(plain::Analysis& made)
    {
        for (int e = 1 + below(3); e > 0; e--) {
            std::vector<int> members;
            for (int s = 0; s < static_cast<int>(made.species.size()); s++)
                if (below(4)) members.push_back(s);
            std::shuffle(members.begin(), members.end(), random_);
            made.ensembles.push_back(members);
        }
    }

    std::mt19937 random_;
};

// An editor on an analysis: its alignment in the store, its dates and names everywhere, and its matrix among
// the program's files. The working directory is root()/work.
class AnalysisTest : public EditorTest {
public:
    AnalysisTest()
    {
        stop_clock(1179302400); // 16 May 2007, 8 hours
        work_in("work");
    }

protected:
    void load_analysis(const plain::Analysis& analysis)
    {
        std::vector<std::string> rows;
        for (const auto& species : analysis.species)
            rows.push_back(species.row);
        load(rows, analysis.ensembles, analysis.type);
        for (int s = 0; s < nb_spec; s++) {
            set_identifier(s, analysis.species[static_cast<std::size_t>(s)].identifier);
            replace_text(s, rows[static_cast<std::size_t>(s)]); // not filled up to the alignment's length
        }
        opt_nogap = analysis.all_columns_shown;
        opt_identificateur = analysis.identifier_option;
        file_ALI = analysis.file;
        file_COL = analysis.colours;
        file_NOM = analysis.groups;
        write_file("seq/" + file_ALI, "#\n#\n>a\nA\n");
        set_file_time("seq/" + file_ALI, 1136214245); // 2 January 2006, 15 hours 4
        std::string matrix;
        for (const auto& row : analysis.identity) {
            for (const double weight : row)
                matrix += text_format("%.17g ", weight);
            matrix += '\n';
        }
        write_file("zoltexe/IDENTITE.MAT", matrix);
    }

    // What is in the working directory, which is emptied.
    plain::Files take_files() const
    {
        plain::Files files;
        for (const std::string& name : file_names("work"))
            files[name] = read_file("work/" + name);
        for (const auto& [name, text] : files)
            std::filesystem::remove(path("work/" + name));
        return files;
    }
};

} // namespace kq::test
