// The box that asks for the parameters of an analysis.
#include "analysis/parameter_box.h"
#include "analysis/parameters.h"
#include "support/screen_test.h"

#include <algorithm>

namespace kq {
namespace {

using test::Ending;

class ParameterBox : public test::ScreenTest {
protected:
    ParameterBox() { parameters_reset(); }

    // What the function returned, or -99 when it is waiting for more keys; `rung` counts the bells.
    int ask(std::string_view keys)
    {
        int result = -99;
        testing::internal::CaptureStdout();
        play(keys, [&] { result = saisir_param_auto(); });
        const std::string output = testing::internal::GetCapturedStdout();
        rung = std::ranges::count(output, '\a');
        return result;
    }
    long rung = 0;
};

TEST_F(ParameterBox, BoundsOfEachField)
{
    struct Case {
        std::string level, percent, alpha; // as typed over what is proposed
        int bells, type_auto, percent_gap;
        double alpha_value;
    };
    const Case accepted[] = {
        {"1", "0", "0.0000001", 0, 1, 0, 1e-7}, {"3", "100", "1000", 0, 3, 100, 1000},
        {"2x", "a", "0.1", 0, 2, 0, 0.1},       {" 2", "12", "1000.00001", 0, 2, 12, 1000.00001},
        {"3", "5", "1e2", 0, 3, 5, 100},
    };
    for (const Case& c : accepted) {
        const std::string clear = "BackSpace*9 ";
        const std::string keys = clear + '"' + c.level + "\" Enter " + clear + '"' + c.percent + "\" Down " +
                                 clear + '"' + c.alpha + "\" Enter";
        EXPECT_EQ(ask(keys), 0) << keys;
        EXPECT_EQ(rung, 0) << keys;
        EXPECT_EQ(type_auto, c.type_auto) << keys;
        EXPECT_EQ(percent_gap, c.percent_gap) << keys;
        EXPECT_DOUBLE_EQ(alpha, c.alpha_value) << keys;
    }
    const std::string to_field[] = {"", "Enter ", "Enter Enter "};
    const std::vector<std::string> refused[] = {
        {"0", "4", "", "a", "-1", "4294967297"}, // the last is 1 to those who drop bits
        {"-1", "101", "4294967296"},
        {"0", "1000.5", "", "nan", "inf", "-1", "0.00000009", "1e99"},
    };
    for (std::size_t field = 0; field < 3; field++)
        for (const std::string& text : refused[field]) {
            EXPECT_EQ(ask(to_field[field] + "BackSpace*9 \"" + text + "\" Enter Down"), -99) << text;
            EXPECT_EQ(rung, 2) << text;
        }
}

TEST_F(ParameterBox, MovesAmongTheFieldsAndForgetsTheLastRun)
{
    EXPECT_EQ(ask("BackSpace 3 Enter BackSpace \"50\" Enter BackSpace*4 2 Enter"), 0);
    EXPECT_EQ(type_auto, 3);
    // The defaults are there again; ESCAPE changes nothing, though.
    EXPECT_EQ(ask("BackSpace 2 Enter Esc"), -1);
    EXPECT_EQ(type_auto, 3);
    EXPECT_EQ(percent_gap, 50);
    EXPECT_EQ(ask("Enter*3"), 0);
    EXPECT_EQ(type_auto, 1);
    EXPECT_EQ(percent_gap, 5);
    EXPECT_DOUBLE_EQ(alpha, 0.5);
    // Up leaves a field unchecked and stays at the first; Tab and F2 stay where they are.
    EXPECT_EQ(ask("Enter BackSpace \"999\" Up*2 Tab BackSpace 2 F2 Down BackSpace*3 7 Enter Up Down Down"),
              0);
    EXPECT_EQ(rung, 0);
    EXPECT_EQ(type_auto, 2);
    EXPECT_EQ(percent_gap, 7);
}

TEST_F(ParameterBox, SaysWhatIsAccepted)
{
    ask("Enter \"55\" Enter");
    EXPECT_SCREEN("parameter_box");
    ask("Enter \"55\" Enter BackSpace Enter");
    EXPECT_FALSE(shows("0 to 100")) << "the field has been mended";
    open({.lines = 20, .columns = 24});
    ask("Enter*2 BackSpace*4 \"1234567890\" Enter");
    EXPECT_SCREEN("parameter_box_tiny");
}

} // namespace
} // namespace kq
