#include "toolkit/cip/cipstd/strlibsrc/btkStrBuf.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "toolkit/btk/Abort.h"
#include "toolkit/cip/cipstd/strlibsrc/xtext.h"

namespace {

const char bufferVersion[] = "J-03";

// The converted text of the inline view, or a fatal error.
void* convertInline(btkStrBuf& buffer, bool inlineWide, std::size_t& size) {
    void* copy = nullptr;
    if (inlineWide) {
        std::string narrow;
        if (!xtext::wideToNarrow(reinterpret_cast<const xwchar*>(buffer.InlineText()), narrow))
            btk::foundationAbort("Invalid wide string: failed to convert to multibyte");
        size = narrow.size() + 1;
        copy = std::malloc(size);
        std::memcpy(copy, narrow.c_str(), size);
    } else {
        std::u16string wide;
        if (!xtext::narrowToWide(buffer.InlineText(), wide)) btk::foundationAbort("Invalid multibyte string");
        size = 2 * wide.size() + 2;
        copy = std::malloc(size);
        std::memcpy(copy, wide.c_str(), size);
    }
    return copy;
}

}  // namespace

std::mutex& btkStrBufLock() {
    static std::mutex lock;
    return lock;
}

btkStrBuf::btkStrBuf(std::size_t capacity, bool wide)
    : capacity(static_cast<int32_t>(capacity)), isWide(wide ? 1 : 0) {}

btkStrBuf::~btkStrBuf() { dropOther(); }

btkStrBuf* btkStrBuf::Create(std::size_t capacity, bool wide) {
    void* block = ::operator new(sizeof(btkStrBuf) + capacity);
    btkStrBuf* buffer = new (block) btkStrBuf(capacity, wide);
    std::memset(buffer->InlineText(), 0, capacity);
    return buffer;
}

btkStrBuf* btkStrBuf::Empty() {
    // Made once, with a reference of its own that is dropped only when the
    // code goes: at the process's end, or when the plug-in library is unloaded.
    struct Kept {
        btkStrBuf* buffer;
        Kept() : buffer(Create(1, false)) { buffer->makeOtherView(); }
        ~Kept() { buffer->Release(); }
    };
    static Kept empty;
    return empty.buffer;
}

void btkStrBuf::destroy() {
    this->~btkStrBuf();
    ::operator delete(static_cast<void*>(this));
}

void btkStrBuf::dropOther() {
    std::free(other);
    other = nullptr;
    otherSize = 0;
}

void btkStrBuf::makeOtherView() {
    std::size_t size = 0;
    other = convertInline(*this, isWide != 0, size);
    otherSize = static_cast<int32_t>(size);
}

void btkStrBuf::storeViews(const char** narrow, const xwchar** wide) {
    void* inlineText = InlineText();
    if (narrow) *narrow = static_cast<const char*>(isWide ? other : inlineText);
    if (wide) *wide = static_cast<const xwchar*>(isWide ? inlineText : other);
}

btkStrBuf* btkStrBuf::GetViews(const char** narrow, const xwchar** wide) {
    bool needsOther = (narrow && isWide) || (wide && !isWide);
    if (needsOther) {
        std::lock_guard<std::mutex> guard(btkStrBufLock());
        if (!other) makeOtherView();
    }
    storeViews(narrow, wide);
    return this;
}

btkStrBuf* btkStrBuf::BeginModify(std::size_t capacity, char** text, bool keep) {
    return beginModify(capacity, false, reinterpret_cast<void**>(text), keep);
}

btkStrBuf* btkStrBuf::BeginModify(std::size_t capacity, xwchar** text, bool keep) {
    return beginModify(capacity, true, reinterpret_cast<void**>(text), keep);
}

void btkStrBuf::EndModify() {}

// A new buffer of the requested capacity and kind, holding what is kept of
// this one's text; this one loses a reference.
btkStrBuf* btkStrBuf::copyInto(std::size_t newCapacity, bool wide, bool keep) {
    btkStrBuf* fresh = Create(newCapacity, wide);
    if (keep) {
        bool changes = wide != (isWide != 0);
        std::size_t size = std::min<std::size_t>(static_cast<std::size_t>(capacity), newCapacity);
        const void* source = InlineText();
        void* converted = nullptr;
        if (changes && other) {
            source = other;
            size = std::min<std::size_t>(static_cast<std::size_t>(otherSize), newCapacity);
        } else if (changes) {
            std::size_t convertedSize = 0;
            converted = convertInline(*this, isWide != 0, convertedSize);
            source = converted;
            size = std::min(convertedSize, newCapacity);
        }
        std::memcpy(fresh->InlineText(), source, size);
        std::free(converted);
    }
    Release();
    return fresh;
}

btkStrBuf* btkStrBuf::beginModify(std::size_t newCapacity, bool wide, void** text, bool keep) {
    if (newCapacity == 0) btk::foundationAbort("Buffer capacity cannot be zero");
    bool changes = wide != (isWide != 0);
    bool shared = false;
    {
        std::lock_guard<std::mutex> guard(btkStrBufLock());
        shared = refCount >= 2;
    }
    btkStrBuf* result = this;
    if (shared || (keep && changes && !other)) {
        result = copyInto(newCapacity, wide, keep);
    } else if (newCapacity > static_cast<std::size_t>(capacity)) {
        // Too small: a fresh block, with the kept text moved over.
        result = Create(newCapacity, wide);
        if (keep) {
            const void* source = changes ? other : InlineText();
            std::size_t size = changes ? static_cast<std::size_t>(otherSize) : static_cast<std::size_t>(capacity);
            std::memcpy(result->InlineText(), source, std::min(size, newCapacity));
        }
        destroy();
    } else if (changes) {
        if (keep) std::memcpy(InlineText(), other, std::min<std::size_t>(otherSize, capacity));
        isWide = wide ? 1 : 0;
    }
    result->dropOther();
    *text = result->InlineText();
    return result;
}

btkStrBuf* btkStrBuf::Attach(const char** narrow, const xwchar** wide) {
    {
        std::lock_guard<std::mutex> guard(btkStrBufLock());
        ++refCount;
    }
    storeViews(narrow, wide);
    return this;
}

void btkStrBuf::Release() {
    bool last = false;
    {
        std::lock_guard<std::mutex> guard(btkStrBufLock());
        last = --refCount == 0;
    }
    if (last) destroy();
}

const char* btkStrBuf::Version() { return bufferVersion; }

btkStrBuf* btkStrBuf::PeekViews(const char* version, const char** narrow, const xwchar** wide) {
    bool known = version == bufferVersion || (version && std::strncmp(version, bufferVersion, 5) == 0);
    if (!known) return nullptr;
    storeViews(narrow, wide);
    return this;
}
