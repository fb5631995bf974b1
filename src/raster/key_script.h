// format: scripts of keys, played by the memory driver.
//
// Words separated by blanks and line ends, one after the other:
//   Name          one key, by its name (raster/key_names.h): F2 S-F10 C-Left A-BackSpace PgDn Q
//   Name*n        the same key n times, 1 <= n <= 1000000 ("*" alone is the key "*", "**3" three of them)
//   "text"        the keys of each character; \" and \\ stand for a quote and a backslash; "text"*n repeats
//   early WORD    these keys are already waiting while the program works: it sees them when it looks
//                 for a key without stopping for one (long computations do so to be interrupted)
//   screen NAME   writes the screen to NAME.txt and NAME.png; letters, digits, "_", "-" and inner "."
//   # comment     to the end of the line, where a word could begin; the key "#" is written "#" in quotes
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

struct ScriptStep {
    enum Kind { keys, screen };
    Kind kind = keys;
    std::vector<int> codes; // keys: played in this order, `count` times
    int count = 1;
    bool early = false; // keys: they are waiting before the program asks
    std::string name;   // screen
    bool operator==(const ScriptStep&) const = default;
};

struct KeyScript {
    std::vector<ScriptStep> steps;
    std::vector<std::string>
        mistakes; // "line 3: there is no key \"F13\""; the steps are those without mistake
};

KeyScript parse_key_script(std::string_view text);

} // namespace kq
