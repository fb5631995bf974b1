// Every dialog, at awkward geometries, under random keys: each returns or waits for more, and what it leaves
// on the screen is drawn over whole.
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/help.h"
#include "screen/strings.h"
#include "screen/window.h"
#include "support/screen_test.h"

namespace kq {
namespace {

using test::Ending;

constexpr std::string_view keys = "Enter|Escape|Up|Down|PgUp|PgDn|Left|Right|Home|End|BackSpace|Delete|Tab|"
                                  "F1|F7|F8|y|n|x|1|2|5|-|.|Insert|S-F1|"
                                  "Enter|Down";

class SmallScreens : public test::ScreenTest, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(SmallScreens, SurviveRandomKeys)
{
    const auto [lines, columns] = GetParam();
    std::string help;
    for (int i = 0; i < 90; i++)
        help += text_format("%*d\n", i * 3 % 100, i);
    write_file("zoltexe/KQ0.HLP", help);
    write_file("seq/x.ali", "");

    const std::function<void(int)> dialogs[] = {
        [](int line) { affich_avert(std::string(300, 'm'), line); },
        [](int line) { confirme("Do you really want to exit from this program?", line); },
        [](int line) {
            static constexpr std::string_view items[] = {"a", "an item of more than twenty characters", "c",
                                                         ""};
            _choice_option(line, 2, items, 40);
        },
        [this](int line) { confirme_ecrase_file(path("seq/x.ali"), line); },
        [this](int line) {
            std::string name = "x";
            saisir_nom_fichier("File name (.ali):", name, "ali", path("seq/"), NameMode::read, line);
        },
        [](int line) {
            window_hp(line, 15, line + 2, 65, color::cyan);
            float value = 1.5f;
            input_float(value, -10, 10, 2, 35);
        },
        [](int line) { _aide("KQ0", line, 5, line + 20, 75); },
        [](int) { choice_option_window("title"); },
    };
    for (unsigned seed = 1; seed <= 12; seed++)
        for (std::size_t i = 0; i < std::size(dialogs); i++) {
            std::mt19937 random(seed);
            open({.lines = lines, .columns = columns});
            const std::string script = test::random_keys(random, keys, 60);
            const int line = static_cast<int>(random() % 40) + 1;
            const auto played = play(script, [&] { dialogs[i](line); });
            ASSERT_NE(played.ending, Ending::program_ended)
                << "dialog " << i << ", seed " << seed << errors();
            _clearscreen(0);
            for (int number = 1; number <= _nb_line; number++)
                ASSERT_EQ(test::ScreenTest::line(number), "");
        }
}

INSTANTIATE_TEST_SUITE_P(Geometries, SmallScreens,
                         testing::Values(std::pair{20, 20}, std::pair{20, 200}, std::pair{200, 20},
                                         std::pair{21, 37}, std::pair{34, 80}));

} // namespace
} // namespace kq
