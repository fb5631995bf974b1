#include "support/screen_test.h"

#include "raster/grx.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/notice.h"
#include "screen/process_end.h"
#include "screen/window.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kq::test {

namespace {

// Thrown in the place of the program's end.
struct ProgramEnd {
    int status;
};

// Keys that are still in the script.
int read_keys_left()
{
    int count = 0;
    try {
        for (;; count++)
            GrKeyRead();
    } catch (const EndOfScript&) {
        return count;
    }
}

} // namespace

std::string golden_text(std::string_view name, const std::string& actual)
{
    const std::string path = KQ_SOURCE_DIRECTORY "/tests/golden/" + std::string(name) + ".txt";
    if (const char* update = std::getenv("UPDATE_GOLDEN"); update && *update == '1')
        std::ofstream(path, std::ios::binary) << actual;
    EXPECT_TRUE(std::filesystem::exists(path)) << path;
    return read_bytes(path);
}

std::string random_keys(std::mt19937& random, std::string_view pieces, int count)
{
    std::vector<std::string> all;
    std::istringstream stream{std::string(pieces)};
    for (std::string piece; std::getline(stream, piece, '|');)
        all.push_back(piece + ' ');
    std::string script;
    while (count-- > 0)
        script += all[random() % all.size()];
    return script;
}

ScreenSession::ScreenSession(const Geometry& geometry)
    : root_(folder_.path().substr(0, folder_.path().size() - 1))
{
    for (const char* directory : {"seq", "zolt/data", "zolt/ali", "zolt/type", "zoltexe"})
        std::filesystem::create_directories(path(directory));
    setenv("GRX20DRV", "memory", 1);
    unsetenv("KQ_SCRIPT");
    setenv("KQ_SCREENS", root_.c_str(), 1);
    setenv("ZOLT", root_.c_str(), 1);
    setenv("ZOLTEXE", root_.c_str(), 1);
    setenv("KQ_SHARE", "", 1); // what is installed on this machine does not count
    redirect_errors(&errors_);
    set_end_handler([](int status) { throw ProgramEnd{status}; });
    set_rescue(nullptr);
    set_clock(nullptr);
    leave_notice("");
    init_dir();
    GrMemoryScript("");
    open(geometry);
}

ScreenSession::~ScreenSession()
{
    redirect_errors(nullptr);
    set_end_handler(nullptr);
    set_rescue(nullptr);
    set_clock(nullptr);
    set_geometry({}); // for tests without a screen
    if (!working_directory_.empty()) std::filesystem::current_path(working_directory_);
}

void ScreenSession::set_file_time(std::string_view below, std::time_t changed) const
{
    const timespec times[2] = {{changed, 0}, {changed, 0}};
    utimensat(AT_FDCWD, path(below).c_str(), times, 0);
}

void ScreenSession::work_in(std::string_view below)
{
    working_directory_ = std::filesystem::current_path();
    std::filesystem::create_directories(path(below));
    std::filesystem::current_path(path(below));
}

void ScreenSession::stop_clock(std::time_t now)
{
    static std::time_t stopped_at;
    stopped_at = now;
    setenv("TZ", "UTC", 1);
    tzset();
    set_clock([] { return stopped_at; });
}

void ScreenSession::set_geometry(const Geometry& geometry)
{
    _nb_line = geometry.lines;
    _nb_col = geometry.columns;
    _gr_size_x = geometry.cell_height;
    _gr_size_y = geometry.cell_width;
    _type_font = geometry.font_type;
}

void ScreenSession::open(const Geometry& geometry)
{
    set_geometry(geometry);
    open_window(program_title);
}

Played ScreenSession::play(std::string_view script, const std::function<void()>& screen)
{
    GrMemoryScript(script);
    Played played;
    try {
        screen();
        played.keys_left = read_keys_left();
    } catch (const EndOfScript&) {
        played.ending = Ending::script_ended;
    } catch (const ProgramEnd& end) {
        played.ending = Ending::program_ended;
        played.status = end.status;
        played.keys_left = read_keys_left();
    }
    return played;
}

std::string ScreenSession::line(int number) const
{
    std::string text = screen_line(number);
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

int ScreenSession::line_of(std::string_view text) const
{
    for (int number = 1; number <= _nb_line; number++)
        if (screen_line(number).find(text) != std::string::npos) return number;
    return 0;
}

int ScreenSession::color_of(std::string_view text) const
{
    const int number = line_of(text);
    return number ? color_at(number, static_cast<int>(screen_line(number).find(text)) + 1) : -1;
}

std::string ScreenSession::text_in(int colour, int first_line) const
{
    std::string text;
    for (int number = first_line; number <= _nb_line; number++)
        for (int column = 1; column <= _nb_col; column++)
            if (const auto& cell = screen_cell(number, column); cell.fg == colour && cell.ch != ' ')
                text += static_cast<char>(cell.ch);
    return text;
}

void ScreenSession::write_program(std::string_view below, std::string_view shell_script) const
{
    write_file(below, "#!/bin/sh\n" + std::string(shell_script));
    std::filesystem::permissions(path(below), std::filesystem::perms::owner_all);
}

bool ScreenSession::has_file(std::string_view below) const
{
    return std::filesystem::exists(path(below));
}

} // namespace kq::test
