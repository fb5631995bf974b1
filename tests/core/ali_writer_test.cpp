// Writing alignment files: the saved text, the backup and the rescue copy.
#include "core/ali_reader.h"
#include "core/ali_writer.h"
#include "core/edit.h"
#include "core/store.h"
#include "screen/directories.h"
#include "support/ali_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

using namespace kq;
using kq::test::AliFolder;

namespace {

using Names = std::vector<std::string>;

const std::string original =
    "#16S\n#Bacteria\n# a comment\n>one#NEW#\nACGT  \n>two#NEW##MASKED#\nA T\n>gone\nCC\n"
    ">empty\n\n";
const std::string saved = "#16S\n#Bacteria\n>one\nACGT\n>two#MASKED#\nA T\n>empty\n\n";

mode_t mode_of(const std::string& path)
{
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

} // namespace

TEST(AliWriter, SavesAndKeepsThePreviousVersion)
{
    const AliFolder folder;
    folder.write("x.ali", original);
    folder.write("x.bak", "an older version");
    folder.write("KQ_SAUVE.TMP", "left by a run that was killed");
    folder.write("KQ_BACKUP.TMP", "left by a run that was killed");
    chmod(folder.path("x.ali").c_str(), 0600);
    ASSERT_EQ(folder.load("x.ali"), "");
    set_destroyed(2, true);
    const auto mask_before = umask(022);
    EXPECT_EQ(save_ali(), "");
    umask(mask_before);
    EXPECT_EQ(folder.read("x.ali"), saved);
    EXPECT_EQ(ali_text_size(), saved.size());
    EXPECT_EQ(folder.read("x.bak"), original);
    EXPECT_EQ(folder.names(), (Names{"x.ali", "x.bak"}));
    // Both are new files, as copies are.
    EXPECT_EQ(mode_of(folder.path("x.ali")), 0644U);
    EXPECT_EQ(mode_of(folder.path("x.bak")), 0644U);
}

TEST(AliWriter, SavesAFileThatHasVanishedButNotBesideAnotherSave)
{
    const AliFolder folder;
    folder.write("x.ali", original);
    folder.write("x.bak", "an older version");
    ASSERT_EQ(folder.load("x.ali"), "");
    std::filesystem::remove(folder.path("x.ali"));
    EXPECT_EQ(save_ali(), "");
    EXPECT_EQ(folder.read("x.bak"), "an older version");
    EXPECT_EQ(folder.names(), (Names{"x.ali", "x.bak"}));

    // It waits for nobody else's save.
    const int other = open(dir_SEQ.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_EQ(save_ali(), "Another program is saving in the directory " + dir_SEQ);
    close(other);
    EXPECT_EQ(folder.read("x.bak"), "an older version");
    EXPECT_EQ(save_ali(), "");
}

TEST(AliWriter, WhatIsSavedIsReadBackTheSame)
{
    const AliFolder folder;
    std::vector<std::pair<std::string, std::string>> files = {
        {"crlf.ali", "#16S\n#Bacteria\n>a\nACGT\r\n>b\nA\r\n>c\n \r\n"},
        {"lower.ali", "#\n#\n>a b@c\n  aC-$?X* t\n>b\n*\n>\n\n"},
    };
    for (const auto* name : {"ovomucoid", "proteases", "ssu_frag", "ssu_small"})
        files.emplace_back("real.ali", kq::test::read_bytes(KQ_SOURCE_DIRECTORY "/demo/ZOLT/seq/" +
                                                            std::string(name) + ".ali"));
    for (auto& [name, bytes] : files) {
        SCOPED_TRACE(name + ": " + bytes.substr(0, 40));
        for (std::size_t at = 0; (at = bytes.find("#NEW#", at)) != std::string::npos;)
            bytes.erase(at, 5); // dropped by every save
        folder.write(name, bytes);
        ASSERT_EQ(folder.load(name), "");
        EXPECT_EQ(save_ali(), "");
        EXPECT_TRUE(folder.read(name) == bytes);
    }
}

TEST(AliWriter, RescuesUnsavedWorkOnly)
{
    const AliFolder folder;
    folder.write("x.ali", original);
    EXPECT_EQ(rescue_ali(), "");
    ASSERT_EQ(folder.load("x.ali"), "");
    EXPECT_EQ(rescue_ali(), "");
    set_destroyed(2, true);
    mark_changed();
    EXPECT_EQ(rescue_ali(), folder.path("x_rescue.ali"));
    EXPECT_EQ(rescue_ali(), folder.path("x_rescue2.ali"));
    EXPECT_EQ(folder.read("x_rescue2.ali"), saved);
    EXPECT_EQ(folder.read("x.ali"), original);

    // Without the alignment's directory it goes to the working directory, then to the home directory.
    const auto working = std::filesystem::current_path();
    std::filesystem::create_directory(folder.path("home"));
    std::filesystem::create_directory(folder.path("work"));
    std::filesystem::current_path(folder.path("work"));
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    setenv("HOME", folder.path("home").c_str(), 1);
    dir_SEQ = folder.path("absent/");
    EXPECT_EQ(rescue_ali(), "./x_rescue.ali");
    std::filesystem::remove_all(folder.path("work"));
    EXPECT_EQ(rescue_ali(), folder.path("home/x_rescue.ali"));
    setenv("HOME", home.c_str(), 1);
    std::filesystem::current_path(working);
}
