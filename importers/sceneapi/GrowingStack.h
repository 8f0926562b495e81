#pragma once
// The scene file writer's stacks of saved state. They start with room for 32
// entries and grow to twice their size plus 32 when one entry short of full.
// Popping an empty stack is tolerated: the count stays at zero and the answer
// is the bottom entry, so an unbalanced caller gets an unbalanced file rather
// than a crash.
#include <cstddef>
#include <vector>

template <typename T>
class GrowingStack {
public:
    GrowingStack() : entries(32, T{}) {}

    void push(T value) {
        entries[count++] = value;
        if (count + 1 >= entries.size()) entries.resize(entries.size() * 2 + 32, T{});
    }

    T pop() {
        if (count > 0) --count;
        return entries[count];
    }

    std::size_t size() const { return count; }
    std::size_t capacity() const { return entries.size(); }

    // The entries from the bottom up, for walking all of them.
    const T* begin() const { return entries.data(); }
    const T* end() const { return entries.data() + count; }

private:
    std::vector<T> entries;
    std::size_t count = 0;
};
