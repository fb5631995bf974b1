// kernel: characters of sequences as another program wants them.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kq {

// What each character is written as: itself, until told otherwise.
class Spelling {
public:
    constexpr Spelling()
    {
        for (std::size_t c = 0; c < as_.size(); c++)
            as_[c] = static_cast<char>(c);
    }
    // Each of these characters is written as `as`.
    constexpr Spelling& write(std::string_view characters, char as)
    {
        for (const char c : characters)
            as_[static_cast<unsigned char>(c)] = as;
        return *this;
    }
    // Every character but these.
    constexpr Spelling& write_all_but(std::string_view characters, char as)
    {
        for (std::size_t c = 0; c < as_.size(); c++)
            if (characters.find(static_cast<char>(c)) == std::string_view::npos) as_[c] = as;
        return *this;
    }
    void apply(std::string& text) const
    {
        for (char& c : text)
            c = as_[static_cast<unsigned char>(c)];
    }

private:
    std::array<char, 256> as_{};
};

} // namespace kq
