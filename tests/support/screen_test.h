// Scripted screens: a window on the memory driver, keys played into any screen, eyes on the cells, and a
// private tree of directories.
//
//   class WarningTest : public kq::test::ScreenTest {};
//   TEST_F(WarningTest, IsClosedByAnyKey)
//   {
//       auto played = play("Q", [] { affich_avert("The file is empty", 5); });
//       EXPECT_EQ(played.ending, Ending::returned);
//       EXPECT_EQ(line(6), "");
//   }
//
// A script that ends inside a screen leaves it: that is how a screen in the middle of its work is looked at.
#pragma once

#include "screen/text.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <string_view>

namespace kq::test {

// A geometry of the window, the defaults being those of the program.
struct Geometry {
    int lines = 34, columns = 80;
    int cell_width = 8, cell_height = 14;
    int font_type = 0;
};

enum class Ending {
    returned,     // the screen returned
    script_ended, // it waited for more keys than the script had
    program_ended // it ended the program
};

struct Played {
    Ending ending = Ending::returned;
    int status = -1;   // of the program's end
    int keys_left = 0; // keys of the script that nobody read
};

// What a test needs around a screen; a fixture may also hold one.
class ScreenSession {
public:
    explicit ScreenSession(const Geometry& geometry = {}); // makes the directories and opens the window
    ~ScreenSession();
    ScreenSession(const ScreenSession&) = delete;
    ScreenSession& operator=(const ScreenSession&) = delete;

    // Opens the window anew, blank.
    void open(const Geometry& geometry);

    // Plays the keys of `script` (the grammar of raster/key_script.h) while `screen` runs.
    Played play(std::string_view script, const std::function<void()>& screen);

    // Lines and columns are 1-based, of the whole screen.
    std::string line(int number) const; // without the blanks at its end
    bool shows(std::string_view text) const { return line_of(text) != 0; }
    int line_of(std::string_view text) const;  // first line with the text, 0 = none
    int color_of(std::string_view text) const; // colour of the first character of its first occurrence, or -1
    // What stands in a colour from a line on, without blanks.
    std::string text_in(int colour, int first_line) const;
    int color_at(int line, int column) const { return screen_cell(line, column).fg; }
    int background_at(int line, int column) const { return screen_cell(line, column).bg; }

    // The texts that went to standard error.
    const std::string& errors() const { return errors_; }
    void forget_errors() { errors_.clear(); }

    // The private directory, without "/" at its end; ZOLT and ZOLTEXE name it, and the directories of the
    // program are made in it (seq/, zolt/data/, zolt/ali/, zolt/type/, zoltexe/).
    const std::string& root() const { return root_; }
    std::string path(std::string_view below) const { return folder_.path(below); } // root()/below
    // `below` as in path().
    void write_file(std::string_view below, std::string_view bytes) const { folder_.write(below, bytes); }
    void write_program(std::string_view below, std::string_view shell_script) const;
    std::string read_file(std::string_view below) const { return folder_.read(below); }
    std::vector<std::string> file_names(std::string_view below) const { return folder_.names(below); }
    bool has_file(std::string_view below) const;
    void set_file_time(std::string_view below, std::time_t changed) const;
    // Makes a directory the working directory, until the session ends.
    void work_in(std::string_view below);
    // The clock of the program stands here, in UTC.
    static void stop_clock(std::time_t now);

private:
    static void set_geometry(const Geometry& geometry);

    Folder folder_;
    std::string root_, errors_, working_directory_;
};

// The text of tests/golden/<name>.txt, which is what a test expects to see; UPDATE_GOLDEN=1 in the
// environment rewrites it to `actual`, and the difference is then reviewed like any other change.
std::string golden_text(std::string_view name, const std::string& actual);

// A script of `count` pieces drawn from "Up|Down|F4 Enter".
std::string random_keys(std::mt19937& random, std::string_view pieces, int count);

class ScreenTest : public testing::Test, public ScreenSession {
public:
    explicit ScreenTest(const Geometry& geometry = {})
        : ScreenSession(geometry)
    {
    }
};

} // namespace kq::test

#define EXPECT_SCREEN(name) EXPECT_EQ(::kq::test::golden_text(name, ::kq::screen_dump()), ::kq::screen_dump())
