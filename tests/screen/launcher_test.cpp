#include "screen/directories.h"
#include "screen/files.h"
#include "screen/launcher.h"
#include "support/screen_test.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace kq {
namespace {

using test::Ending;

class Launcher : public test::ScreenTest {
protected:
    test::Played launch(std::string_view keys)
    {
        return play(keys, [] { choice_autre_exe(6, companion_programs); });
    }
};

TEST_F(Launcher, ListsTheProgramsAndSaysWhyOneWasNotStarted)
{
    launch("");
    EXPECT_SCREEN("launcher");
    EXPECT_EQ(launch("Down Escape").ending, Ending::returned);
    EXPECT_EQ(line_of("kel"), 0);
    dir_ZOLTEXE = "/d/zoltexe/";
    const std::pair<const char*, const char*> cases[] = {
        {"", "kel"}, {"Up", "TOVIKRUM"}, {"PgDn*2 Down", "vellomar"}, {"PgUp Up", "nimbrask"}};
    for (const auto& [keys, name] : cases) {
        launch(keys + std::string(" Enter"));
        EXPECT_TRUE(shows("The program " + std::string(name) + " is not in the directory /d/zoltexe/"));
    }
    dir_ZOLTEXE = path("zoltexe/");
    write_file("zoltexe/kel", "no program");
    launch("Enter");
    EXPECT_TRUE(shows("There is not enough memory to load kel"));
    EXPECT_EQ(launch("Enter Z Escape").keys_left, 1);
}

// In the same process, with the same output and no arguments; SIGXFSZ, ignored here, ends it again.
TEST_F(Launcher, AProgramThatIsThereTakesThePlaceOfTheEditor)
{
    write_program("zoltexe/sirandel", "ulimit -c 0\necho \"$$ $#\"\nkill -XFSZ $$\n");
    NewFile(path("any")).commit();
    const pid_t child = fork();
    if (child == 0) {
        if (!std::freopen(path("out").c_str(), "w", stdout)) _exit(2);
        std::printf("said before\n");
        launch("Down Enter Z");
        launch("Down*2 Enter");
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) << status;
    EXPECT_EQ(read_file("out"), "said before\n" + std::to_string(child) + " 0\n");
}

} // namespace
} // namespace kq
