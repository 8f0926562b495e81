#pragma once
// The growable sequences of the object toolkit, on xobject, stored in one
// contiguous block. An index below zero raises cipXNegativeIndex, one at or
// past the end cipXInvalidSeqIndex.
#include <vector>

#include "toolkit/cip/cipstd/services/cipExceptions.h"

template <typename T>
class xtsequence : public virtual xobject {
public:
    virtual int getarraysize() const { return static_cast<int>(items.size()); }
    virtual T get(int index) const { return items[checked(index)]; }
    virtual void set(int index, const T& value) { items[checked(index)] = value; }
    virtual void append(const T& value) { items.push_back(value); }
    virtual void appendcopy(T value) { items.push_back(std::move(value)); }
    virtual void insert(int index, const T& value) { items.insert(items.begin() + insertionPoint(index), value); }
    virtual void insertseq(int index, const xtsequence& other) {
        items.insert(items.begin() + insertionPoint(index), other.items.begin(), other.items.end());
    }
    // From `from` up to, and not including, `to`.
    virtual void remove(int from, int to) {
        std::size_t first = checked(from);
        std::size_t last = to >= static_cast<int>(items.size()) ? items.size() : checked(to);
        if (last > first) items.erase(items.begin() + static_cast<std::ptrdiff_t>(first),
                                      items.begin() + static_cast<std::ptrdiff_t>(last));
    }
    virtual void clear() { items.clear(); }

protected:
    std::size_t checked(int index) const {
        if (index < 0) xthrow(new cipXNegativeIndex());
        if (index >= static_cast<int>(items.size())) xthrow(new cipXInvalidSeqIndex());
        return static_cast<std::size_t>(index);
    }
    std::ptrdiff_t insertionPoint(int index) const {
        if (index < 0) xthrow(new cipXNegativeIndex());
        if (index > static_cast<int>(items.size())) xthrow(new cipXInvalidSeqIndex());
        return index;
    }

private:
    std::vector<T> items;
};

// Class values (xstring, handles), copy-constructed.
template <typename T>
class xtcsequence : public xtsequence<T> {
    XOBJECT_DECLARE_TEMPLATE(xtcsequence, "xtcsequence")
};

// Plain values with no constructor.
template <typename T>
class xtbsequence : public xtsequence<T> {
    XOBJECT_DECLARE_TEMPLATE(xtbsequence, "xtbsequence")
};

// Enumeration values.
template <typename T>
class xtssequence : public xtsequence<T> {
    XOBJECT_DECLARE_TEMPLATE(xtssequence, "xtssequence")
};

// Fixed arrays of one and two dimensions; any index outside raises
// cipXInvalidArrayIndex.
template <typename T, int N>
class xtarray1 : public virtual xobject {
    XOBJECT_DECLARE_TEMPLATE(xtarray1, "xtarray1")
public:
    T get(int index) const { return items[checked(index)]; }
    void set(int index, const T& value) { items[checked(index)] = value; }

private:
    static std::size_t checked(int index) {
        if (index < 0 || index >= N) xthrow(new cipXInvalidArrayIndex());
        return static_cast<std::size_t>(index);
    }
    T items[N] = {};
};

template <typename T, int N, int M>
class xtarray2 : public virtual xobject {
    XOBJECT_DECLARE_TEMPLATE(xtarray2, "xtarray2")
public:
    T get(int row, int column) const { return items[checked(row, N)][checked(column, M)]; }
    void set(int row, int column, const T& value) { items[checked(row, N)][checked(column, M)] = value; }

private:
    static std::size_t checked(int index, int size) {
        if (index < 0 || index >= size) xthrow(new cipXInvalidArrayIndex());
        return static_cast<std::size_t>(index);
    }
    T items[N][M] = {};
};
