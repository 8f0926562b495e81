#pragma once
// The shared, reference-counted representation of an xstring: one block with
// a header and the first view of the text inline behind it, and the second
// view, in the other encoding, allocated apart when it is first asked for.
// The order of the virtual operations is an interface: a module that got a
// buffer from elsewhere calls them through the table.
#include <cstddef>
#include <cstdint>
#include <mutex>

using xwchar = char16_t;  // wide text is 16-bit on every platform

// The one process-wide lock of reference counts and lazy conversions.
std::mutex& btkStrBufLock();

class btkStrBuf {
public:
    // A new buffer with room for `capacity` bytes of text in the given kind,
    // with one reference.
    static btkStrBuf* Create(std::size_t capacity, bool wide);
    // The empty-string buffer of the process, with both views made.
    static btkStrBuf* Empty();

    virtual btkStrBuf* GetViews(const char** narrow, const xwchar** wide);
    virtual btkStrBuf* BeginModify(std::size_t capacity, char** text, bool keep);
    virtual btkStrBuf* BeginModify(std::size_t capacity, xwchar** text, bool keep);
    virtual void EndModify();
    virtual btkStrBuf* Attach(const char** narrow, const xwchar** wide);
    virtual void Release();
    virtual const char* Version();
    virtual btkStrBuf* PeekViews(const char* version, const char** narrow, const xwchar** wide);
    virtual ~btkStrBuf();

    int32_t RefCount() const { return refCount; }
    char* InlineText() { return reinterpret_cast<char*>(this + 1); }

private:
    btkStrBuf(std::size_t capacity, bool wide);
    btkStrBuf* beginModify(std::size_t capacity, bool wide, void** text, bool keep);
    btkStrBuf* copyInto(std::size_t capacity, bool wide, bool keep);
    void storeViews(const char** narrow, const xwchar** wide);
    void makeOtherView();
    void dropOther();
    void destroy();

    int32_t refCount = 1;
    int32_t capacity = 0;
    int32_t isWide = 0;
    int32_t otherSize = 0;
    void* other = nullptr;
};
