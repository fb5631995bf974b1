// The house rules that no compiler checks: folder order, no circles of modules, one kind of file each.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> folder_order = {"raster", "screen", "core", "taxonomy",
                                               "editor", "tools",  "app"};

struct SourceFile {
    std::string path;   // "core/store.h"
    std::string module; // "core/store": a .h and its .cpp together
    std::string folder;
    std::string first_line;
    std::vector<std::string> includes; // of our own headers
    std::vector<std::string> externs;  // names declared extern
};

std::vector<SourceFile> read_sources()
{
    const fs::path root = fs::path(KQ_SOURCE_DIRECTORY) / "src";
    const std::regex include_line("^#include \"([^\"]+)\"");
    const std::regex extern_name(R"(([A-Za-z_]\w*)(\[[^\]]*\])*\s*[;,])");
    std::vector<SourceFile> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") continue;
        SourceFile file;
        file.path = fs::relative(entry.path(), root).string();
        file.module = file.path.substr(0, file.path.rfind('.'));
        file.folder = file.path.substr(0, file.path.find('/'));
        std::ifstream in(entry.path());
        std::string line;
        std::smatch match;
        while (std::getline(in, line)) {
            if (file.first_line.empty()) file.first_line = line;
            if (std::regex_search(line, match, include_line)) file.includes.push_back(match[1]);
            if (!line.starts_with("extern ") || line.starts_with("extern \"C\"")) continue;
            const std::string code = line.substr(0, line.find("//"));
            const auto names = code.substr(code.rfind('>') == std::string::npos ? 0 : code.rfind('>'));
            for (std::sregex_iterator it(names.begin(), names.end(), extern_name), end; it != end; ++it)
                file.externs.push_back((*it)[1]);
        }
        files.push_back(std::move(file));
    }
    return files;
}

long rank_of(const std::string& folder)
{
    return std::find(folder_order.begin(), folder_order.end(), folder) - folder_order.begin();
}

} // namespace

TEST(Layers, FoldersIncludeOnlyLowerFolders)
{
    const auto files = read_sources();
    ASSERT_GT(files.size(), 30U);
    for (const auto& file : files) {
        EXPECT_LT(rank_of(file.folder), std::ssize(folder_order)) << file.path << ": unknown folder";
        for (const auto& include : file.includes)
            EXPECT_LE(rank_of(include.substr(0, include.find('/'))), rank_of(file.folder))
                << file.path << " includes " << include << ", which lies above it";
    }
}

TEST(Layers, ModulesFormNoCircle)
{
    std::map<std::string, std::set<std::string>> uses;
    for (const auto& file : read_sources())
        for (const auto& include : file.includes) {
            const auto module = include.substr(0, include.rfind('.'));
            if (module != file.module) uses[file.module].insert(module);
        }
    // Takes away what uses nothing and what nothing uses, again and again: circles stay.
    for (bool changed = true; changed;) {
        std::set<std::string> is_used;
        for (auto& [module, used] : uses) {
            std::erase_if(used, [&](const std::string& other) { return !uses.contains(other); });
            is_used.insert(used.begin(), used.end());
        }
        changed = std::erase_if(uses, [&](const auto& entry) {
                      return entry.second.empty() || !is_used.contains(entry.first);
                  }) > 0;
    }
    for (const auto& [module, used] : uses)
        ADD_FAILURE() << module << " is part of a circle, by " << testing::PrintToString(used);
}

TEST(Layers, EveryFileSaysWhichKindItIsAndKernelsIncludeKernelsOnly)
{
    const std::regex first_line("^// (model|kernel|format|screen|platform): .+");
    const auto files = read_sources();
    std::map<std::string, std::string> kind; // of each file
    for (const auto& file : files) {
        EXPECT_TRUE(std::regex_match(file.first_line, first_line)) << file.path << ": " << file.first_line;
        kind[file.path] = file.first_line.substr(3, file.first_line.find(':') - 3);
    }
    for (const auto& file : files) {
        if (kind[file.path] != "kernel") continue;
        for (const auto& include : file.includes)
            EXPECT_EQ(kind[include], "kernel") << file.path << " includes " << include;
    }
}

TEST(Layers, EachGlobalIsDeclaredInOneHeader)
{
    std::map<std::string, std::string> owner;
    for (const auto& file : read_sources())
        for (const auto& name : file.externs) {
            EXPECT_TRUE(file.path.ends_with(".h")) << file.path << " declares " << name;
            const auto [known, fresh] = owner.try_emplace(name, file.path);
            EXPECT_TRUE(fresh) << name << " is declared in " << known->second << " and in " << file.path;
        }
    EXPECT_GT(owner.size(), 40U);
}
