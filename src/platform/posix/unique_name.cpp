#include "platform/posix/unique_name.hpp"

#include <algorithm>
#include <random>

namespace pelrath {

namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t length = 6;

} // namespace

std::string uniqueName(std::string_view prefix) {
    std::random_device random;
    std::uniform_int_distribution<std::size_t> any{0, letters.size() - 1};
    std::string name{prefix};
    for (std::size_t i = 0; i < length; ++i) {
        name += letters[any(random)];
    }
    return name;
}

bool isUniqueName(std::string_view name, std::string_view prefix) {
    return name.size() == prefix.size() + length && name.starts_with(prefix) &&
           std::ranges::all_of(name.substr(prefix.size()),
                               [](char c) { return letters.find(c) != std::string_view::npos; });
}

} // namespace pelrath
