// platform: how much memory this process can still have.
#include "screen/system_memory.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>

namespace kq {

namespace {

using Bytes = std::uint64_t;
constexpr Bytes unlimited = std::numeric_limits<Bytes>::max();

std::string system_root;

// What is left of a limit.
Bytes rest(Bytes limit, Bytes used)
{
    return limit == unlimited ? unlimited : limit - std::min(limit, used);
}

// The number of a file that holds nothing else; nothing when it cannot be read or says "max".
std::optional<Bytes> number_in(const std::string& path)
{
    std::ifstream file(path);
    Bytes number = 0;
    return file >> number ? std::optional(number) : std::nullopt;
}

// The number behind a word at a line's beginning; 0 when there is none.
Bytes number_behind(const std::string& path, std::string_view word)
{
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string first;
        Bytes number = 0;
        if (fields >> first >> number && first == word) return number;
    }
    return 0;
}

Bytes left_by_the_machine()
{
    constexpr Bytes kilobyte = 1024;
    const Bytes available = number_behind(system_root + "/proc/meminfo", "MemAvailable:");
    return available == 0 ? unlimited : available * kilobyte;
}

// Of one control group: the pages of files that it keeps are given up when memory is short.
Bytes left_by_group(const std::string& directory)
{
    const auto limit = number_in(directory + "/memory.max");
    if (!limit) return unlimited;
    const std::string statistics = directory + "/memory.stat";
    const Bytes files = number_behind(statistics, "inactive_file") + number_behind(statistics, "active_file");
    const Bytes used = number_in(directory + "/memory.current").value_or(0);
    return rest(*limit, used - std::min(used, files));
}

// A group has what all groups around it have left, too.
Bytes left_by_groups()
{
    const std::string mounted = system_root + "/sys/fs/cgroup";
    std::ifstream groups(system_root + "/proc/self/cgroup");
    Bytes left = unlimited;
    for (std::string line; std::getline(groups, line);) {
        constexpr std::string_view unified = "0::";
        if (!line.starts_with(unified)) continue;
        std::string group = line.substr(unified.size());
        while (!group.empty() && group != "/") {
            left = std::min(left, left_by_group(mounted + group));
            group.erase(group.rfind('/'));
        }
        left = std::min(left, left_by_group(mounted));
    }
    return left;
}

Bytes limit_of(int resource)
{
    rlimit limit{};
    if (getrlimit(static_cast<__rlimit_resource_t>(resource), &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
        return unlimited;
    return limit.rlim_cur;
}

// The limits of the process itself are never those of another machine.
Bytes left_by_limits()
{
    // Pages of the whole address space, resident, shared, of the program, of libraries, of data and stack.
    std::ifstream sizes("/proc/self/statm");
    Bytes space = 0, resident = 0, shared = 0, program = 0, libraries = 0, data = 0;
    if (!(sizes >> space >> resident >> shared >> program >> libraries >> data)) return unlimited;
    const auto page = static_cast<Bytes>(sysconf(_SC_PAGESIZE));
    return std::min(rest(limit_of(RLIMIT_AS), space * page), rest(limit_of(RLIMIT_DATA), data * page));
}

} // namespace

std::uint64_t available_memory()
{
    return std::min({left_by_the_machine(), left_by_groups(), left_by_limits()});
}

void set_system_root(std::string root)
{
    system_root = std::move(root);
}

} // namespace kq
