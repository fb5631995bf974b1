#include "screen/directories.h"
#include "screen/launcher.h"
#include "screen/process.h"
#include "screen/text.h"
#include "support/golden.h"
#include "support/screen_test.h"

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

namespace kq {
namespace {

using test::Ending;

std::string started;

class Launcher : public test::ScreenTest {
protected:
    Launcher()
    {
        set_replacement([](const std::string& path) {
            started = path;
            return false;
        });
        started.clear();
    }
    ~Launcher() override { set_replacement(nullptr); }

    test::Played launch(std::string_view keys)
    {
        return play(keys, [] { choice_autre_exe(6, companion_programs); });
    }
    void install(std::string_view name, std::string_view text = "")
    {
        const std::string file = "zoltexe/" + std::string(name);
        write_file(file, text);
        std::filesystem::permissions(path(file), std::filesystem::perms::owner_all);
    }
};

TEST_F(Launcher, ListsTheProgramsAndMovesAroundTheirEnds)
{
    launch("");
    EXPECT_SCREEN("launcher");
    for (const auto& name : companion_programs)
        install(name);
    const std::pair<const char*, const char*> cases[] = {
        {"", "kel"},          {"Down", "vellomar"},           {"Up", "TOVIKRUM"},
        {"PgDn", "VELLOMAR"}, {"PgDn PgDn Down", "vellomar"}, {"PgUp Up", "nimbrask"},
    };
    for (const auto& [keys, name] : cases) {
        EXPECT_EQ(launch(keys + std::string(" Enter Z")).ending, Ending::returned);
        EXPECT_EQ(started, dir_ZOLTEXE + name) << keys;
    }
    started.clear();
    EXPECT_EQ(launch("Down Escape").ending, Ending::returned);
    EXPECT_EQ(started, "");
    EXPECT_EQ(line_of("kel"), 0);
}

TEST_F(Launcher, SaysWhyAProgramWasNotStarted)
{
    dir_ZOLTEXE = "/d/zoltexe/";
    launch("Enter");
    EXPECT_TRUE(shows("The program kel is not in the directory /d/zoltexe/"));
    dir_ZOLTEXE = path("zoltexe/");
    install("kel");
    launch("Enter");
    EXPECT_TRUE(shows("There is not enough memory to load kel"));
    EXPECT_EQ(launch("Enter Z Escape").keys_left, 1);
}

TEST_F(Launcher, ScrollsInASmallWindow)
{
    open({.lines = 20, .columns = 20});
    std::vector<std::string_view> many(30, "program");
    many.back() = "the last";
    play("Up", [&] { choice_autre_exe(6, many); });
    EXPECT_EQ(color_of("the last"), color::yellow);
    launch("");
    EXPECT_SCREEN("launcher_tiny");
}

TEST_F(Launcher, AProgramThatIsThereTakesThePlaceOfTheEditor)
{
    install("sirandel", "#!/bin/sh\necho \"$$ $#\" > \"$0.said\"\nexit 7\n");
    set_replacement(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        launch("Down*2 Enter");
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_EQ(read_file("zoltexe/sirandel.said"), std::to_string(child) + " 0\n");
}

} // namespace
} // namespace kq
