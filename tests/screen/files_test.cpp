#include "screen/directories.h"
#include "screen/files.h"
#include "screen/process_end.h"
#include "support/screen_test.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace kq {
namespace {

using test::Ending;

class Files : public test::ScreenTest {
protected:
    mode_t mode(std::string_view below) const
    {
        struct stat status {};
        stat(path(below).c_str(), &status);
        return status.st_mode & 0777;
    }
    using Names = std::vector<std::string>;
};

TEST_F(Files, ANewFileAppearsWholeOrNotAtAll)
{
    const std::string text(3'000'000, 'x'); // several writes
    {
        NewFile file(path("seq/a.ali"));
        file.write(text);
        EXPECT_FALSE(has_file("seq/a.ali"));
        ASSERT_TRUE(file.commit()) << file.error();
        EXPECT_EQ(file_names("seq"), Names{"a.ali"});
    }
    EXPECT_EQ(read_file("seq/a.ali"), text);
    {
        NewFile abandoned(path("seq/a.ali"));
        abandoned.write("half");
    }
    EXPECT_EQ(file_names("seq"), Names{"a.ali"});
    EXPECT_EQ(read_file("seq/a.ali").size(), text.size());
}

TEST_F(Files, OnlyRegularFilesAreCopied)
{
    ASSERT_EQ(mkfifo(path("seq/pipe").c_str(), 0600), 0); // opening it would wait for a writer
    for (const std::string& from : {path("seq/pipe"), path("seq"), std::string("/dev/zero")})
        EXPECT_EQ(copy_file_safely(from, path("seq/copy")),
                  "Problem in opening file " + from + " (it is not a regular file)");
    EXPECT_EQ(file_names("seq"), Names{"pipe"});
}

TEST_F(Files, ALeftoverTemporaryIsReplacedNotFollowed)
{
    write_file("seq/precious", "kept");
    ASSERT_EQ(symlink(path("seq/precious").c_str(), path("seq/KQ_SAUVE.TMP").c_str()), 0);
    NewFile file(path("seq/a.ali"), path("seq/KQ_SAUVE.TMP"));
    file.write("new");
    ASSERT_TRUE(file.commit());
    EXPECT_EQ(read_file("seq/precious"), "kept");
    EXPECT_EQ(read_file("seq/a.ali"), "new");
    EXPECT_EQ(file_names("seq").size(), 2U);
}

TEST_F(Files, MovingCopiesTheTextWithAFreshMode)
{
    const mode_t mask = umask(027);
    const std::string name = "seq/hostile $(touch x);'\"name.ali";
    write_file(name, std::string("text\n\0with NUL, no last line feed", 33));
    chmod(path(name).c_str(), 0600);
    const std::string text = read_file(name);
    rrename(path(name), path("seq/-new"));
    umask(mask);
    EXPECT_EQ(file_names("seq"), Names{"-new"});
    EXPECT_EQ(read_file("seq/-new"), text);
    EXPECT_EQ(mode("seq/-new"), 0640U);
}

TEST_F(Files, CheckedCallsEndTheProgram)
{
    write_file("seq/a", "1");
    write_file("seq/b", "2");
    const std::string a = path("seq/a"), b = path("seq/b"), none = path("seq/none");
    std::filesystem::create_directories(path("seq/full/of"));
    const struct {
        std::function<void()> call;
        std::string message;
    } cases[] = {
        {[&] { ffopen(none, "r"); }, "Problem in opening file " + none},
        {[&] { rremove(path("seq/full")); }, "Problem in deleting file " + path("seq/full")},
        {[&] { rrename(a, b); },
         "Problem in changing name from " + a + " to " + b + " (" + b + " already exists)"},
        {[&] { rrename(none, path("seq/c")); }, "Problem in opening file " + none},
    };
    for (const auto& c : cases) {
        forget_errors();
        EXPECT_EQ(play("", c.call).status, 1);
        EXPECT_EQ(errors(),
                  "The program has encountered the following FATAL ERROR :\n\n" + c.message + "\n\n\n");
    }
    EXPECT_EQ(read_file("seq/a") + read_file("seq/b"), "12");
    EXPECT_NE(rremove(none), 0);
    EXPECT_EQ(rremove(a), 0);
    EXPECT_FALSE(exists(a));
}

TEST_F(Files, AFatalEndRescuesUnsavedWorkOnce)
{
    set_rescue([]() -> std::string { return "/somewhere/rescue.ali"; });
    play("", [] { erreur_fatale("Bad luck"); });
    EXPECT_EQ(errors(), "The program has encountered the following FATAL ERROR :\n\nBad luck\n\n\n"
                        "The unsaved changes have been written to /somewhere/rescue.ali\n");
    forget_errors();
    set_rescue([]() -> std::string { erreur_fatale("The rescue fails too"); });
    const auto played = play("", [] { erreur_fatale("Bad luck"); });
    EXPECT_EQ(played.ending, Ending::program_ended);
}

TEST_F(Files, DirectoriesComeFromTheEnvironment)
{
    setenv("ZOLTEXE", "/opt/exe", 1);
    setenv("ZOLT", "", 1);
    init_dir();
    EXPECT_EQ(dir_ZOLTEXE, "/opt/exe/zoltexe/");
    EXPECT_EQ(dir_SEQ, "/seq/");
    EXPECT_EQ(dir_DATA, "/zolt/data/");
    setenv("ZOLT", ("/" + std::string(77, 'd')).c_str(), 1); // 78 + "/zolt/data/" = 89
    init_dir();
    EXPECT_EQ(dir_DATA.size(), 89U);
    const std::string fatal = "The program has encountered the following FATAL ERROR :\n\nThe variable ";
    const struct {
        int exe_length, root_length; // -1 = unset
        std::string message;
    } cases[] = {
        {-1, 10, "The global variable ZOLTEXE is not defined"},
        {10, -1, "The global variable ZOLT is not defined"},
        {81, 10, fatal + "dir_ZOLTEXE is too long\n\n\n"}, // + "/zoltexe/" = 90
        {10, 79, fatal + "dir_DATA is too long\n\n\n"},
        {10, 80, fatal + "dir_ALI is too long\n\n\n"},
    };
    const auto set = [](const char* name, int length) {
        if (length < 0)
            unsetenv(name);
        else
            setenv(name, std::string(static_cast<std::size_t>(length), 'd').c_str(), 1);
    };
    for (const auto& c : cases) {
        forget_errors();
        set("ZOLTEXE", c.exe_length);
        set("ZOLT", c.root_length);
        EXPECT_EQ(play("", init_dir).status, 1);
        EXPECT_EQ(errors(), c.message);
    }
}

} // namespace
} // namespace kq
