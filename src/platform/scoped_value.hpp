#pragma once

#include <utility>

namespace pelrath {

/// While it lives, a variable has another value.
template <class T>
class ScopedValue {
public:
    ScopedValue(T& variable, T value)
        : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
    ~ScopedValue() { variable_ = std::move(before_); }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

private:
    T& variable_;
    T before_;
};

} // namespace pelrath
