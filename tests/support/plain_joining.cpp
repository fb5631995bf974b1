#include "support/plain_joining.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace kq::plain {

namespace {

constexpr double starting_minimum = 99999998430674944.0;

std::string with_length(const std::string& subtree, double length)
{
    std::array<char, 400> text{}; // the largest double has 309 digits before the point
    std::snprintf(text.data(), text.size(), ":%f", length);
    return subtree + text.data();
}

class Joining {
public:
    Joining(std::span<const float> matrix, const std::vector<std::string>& names)
        : stride_(names.size())
        , rows_(static_cast<int>(names.size()))
        , matrix_(matrix.begin(), matrix.end())
        , subtrees_(names)
        , sums_(names.size())
    {
        for (std::string& name : subtrees_)
            std::replace(name.begin(), name.end(), ' ', '_');
        for (int i = 0; i < rows_; i++)
            d(i, i) = 0;
    }

    JoinedTree run()
    {
        JoinedTree tree;
        while (rows_ >= 3) {
            const auto [j, i] = closest_pair();
            tree.joins.push_back(branches(j, i));
            const Join& join = tree.joins.back();
            auto& first = subtree(j);
            auto& second = subtree(i);
            first = with_length(first, join.first_length);
            second = with_length(second, join.second_length);
            if (rows_ > 3) {
                first = "(" + second + "," + first + ")";
                subtrees_.erase(subtrees_.begin() + i);
            }
            join_rows(j, i);
            if (rows_ == 2) {
                tree.third_length = static_cast<double>(d(1, 0));
                auto& third = subtree(3 - j - i);
                third = with_length(third, tree.third_length);
            }
        }
        tree.text = "(" + subtrees_[0] + "," + subtrees_[1] + "," + subtrees_[2] + ");";
        return tree;
    }

private:
    float& d(int i, int j)
    {
        const auto row = static_cast<std::size_t>(std::max(i, j)),
                   column = static_cast<std::size_t>(std::min(i, j));
        return matrix_[row * stride_ + column];
    }
    std::string& subtree(int slot) { return subtrees_[static_cast<std::size_t>(slot)]; }
    double& sum(int i) { return sums_[static_cast<std::size_t>(i)]; }

    std::pair<int, int> closest_pair()
    {
        for (int i = 0; i < rows_; i++) {
            sum(i) = 0;
            for (int k = 0; k < rows_; k++)
                sum(i) += static_cast<double>(d(i, k));
        }
        std::pair<int, int> closest{0, 1}; // stays where no Q is below the minimum
        double minimum = starting_minimum;
        for (int i = 0; i < rows_; i++)
            for (int j = 0; j < i; j++) {
                const double q = static_cast<double>(d(i, j)) - (sum(i) + sum(j)) / (rows_ - 2);
                if (q < minimum) {
                    minimum = q;
                    closest = {j, i};
                }
            }
        return closest;
    }

    Join branches(int j, int i)
    {
        const double between = static_cast<double>(d(i, j));
        const double b = (between + (sum(i) - sum(j)) / (rows_ - 2)) / 2;
        return {j, i, between - b, b};
    }

    // Row j takes the joined distances, row i goes.
    void join_rows(int j, int i)
    {
        const float between = d(i, j);
        for (int k = 0; k < rows_; k++) {
            if (k == i || k == j) continue;
            const float both = d(k, j) + d(k, i);
            const float beyond = both - between;
            d(k, j) = beyond / 2.0F;
        }
        for (int row = i + 1; row < rows_; row++)
            for (int column = 0; column < row; column++)
                if (column != i) d(row - 1, column < i ? column : column - 1) = d(row, column);
        rows_--;
    }

    std::size_t stride_;
    int rows_;
    std::vector<float> matrix_;
    std::vector<std::string> subtrees_;
    std::vector<double> sums_;
};

} // namespace

JoinedTree joined_tree(std::span<const float> matrix, const std::vector<std::string>& names)
{
    return names.size() < 3 ? JoinedTree{} : Joining(matrix, names).run();
}

} // namespace kq::plain
