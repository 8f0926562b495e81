#include "toolkit/cip/cipstd/services/xrtti.h"

#include <cstring>
#include <unordered_map>

#include "toolkit/cip/cipstd/services/cipExceptions.h"

namespace {

// The dictionary, and the descriptions that the getters made. Both go with
// the code that holds them, so that unloading the plug-in library leaves
// nothing behind.
struct Descriptions {
    Descriptions() { byName.reserve(16); }
    std::unordered_map<std::string, xrtti*> byName;
    std::vector<std::unique_ptr<xrtti>> kept;
};

Descriptions& descriptions() {
    static Descriptions all;
    return all;
}

std::unordered_map<std::string, xrtti*>& dictionary() { return descriptions().byName; }

// Descriptions are themselves objects; they are never counted.
xrttiobject* kindDescription(const char* kind) {
    static std::map<std::string, std::unique_ptr<xrttiobject>> kinds;
    auto& slot = kinds[kind];
    if (!slot) slot = std::make_unique<xrttiobject>(kind, false, std::vector<xrttiobject*>{});
    return slot.get();
}

}  // namespace

xrtti::xrtti(const char* text) : name(text) {}

xrtti::~xrtti() = default;

xrttiobject* xrtti::xgetrtti() const { return kindDescription(KindName()); }

xstring xrtti::GetName() const { return name; }

bool xrtti::IsSame(const xrtti* other) const {
    if (other == this) return true;
    if (!other) return false;
    return std::strcmp(static_cast<const char*>(name), static_cast<const char*>(other->name)) == 0;
}

bool xrtti::IsAssignable(const xrtti* other) const {
    if (!other) return false;
    return other->IsSame(xrttibasic::any()) || other->IsSame(this);
}

void xrtti::AddAttribute(const char* key, xrttiattr* attribute) {
    if (!attributes) attributes = std::make_unique<std::map<std::string, xrttiattr*>>();
    (*attributes)[key] = attribute;
}

xrttiattr* xrtti::GetAttribute(const char* key) const {
    if (!attributes) return nullptr;
    auto found = attributes->find(key);
    return found == attributes->end() ? nullptr : found->second;
}

void xrtti::SetName(const char* text) { name = text; }

const char* xrtti::KindName() const { return "xrtti"; }

const char* xrttibasic::KindName() const { return "xrttibasic"; }

xrttibasic* xrttibasic::any() {
    static xrttibasic shared("any");
    return &shared;
}

xrttienum::xrttienum(const char* name, std::vector<const char*> list) : xrtti(name), values(std::move(list)) {}

const char* xrttienum::KindName() const { return "xrttienum"; }

const char* xrttienum::GetValueName(int value) const {
    return value >= 0 && value < GetValueCount() ? values[static_cast<std::size_t>(value)] : nullptr;
}

xrttiobject::xrttiobject(const char* name, bool counted, std::vector<xrttiobject*> list)
    : xrtti(name), refCountable(counted), bases(std::move(list)) {}

const char* xrttiobject::KindName() const { return "xrttiobject"; }
bool xrttiobject::IsRefCountable() const { return refCountable; }
int xrttiobject::GetBaseCount() const { return static_cast<int>(bases.size()); }

xrttiobject* xrttiobject::GetBase(int index) const {
    return index >= 0 && index < GetBaseCount() ? bases[static_cast<std::size_t>(index)] : nullptr;
}

xrttiattr::xrttiattr(const char* name, xrtti* attributeType, bool isOptional)
    : xrtti(name), type(attributeType), optional(isOptional) {}

const char* xrttiattr::KindName() const { return "xrttiattr"; }

xrtti* xrttiFind(const char* name) {
    auto found = dictionary().find(name);
    return found == dictionary().end() ? nullptr : found->second;
}

void xrttiKeep(xrtti* description) { descriptions().kept.emplace_back(description); }

void xrttiRegister(xrtti* description) {
    dictionary()[static_cast<const char*>(description->GetName())] = description;
}

xrttienum* xrttiDescribeEnum(xrttienum*& slot, const char* name, std::vector<const char*> values) {
    if (slot) return slot;
    if (xrtti* found = xrttiFind(name)) {
        slot = dynamic_cast<xrttienum*>(found);
        if (!slot) xrttiKindMismatch(name);
        return slot;
    }
    slot = new xrttienum(name, std::move(values));
    xrttiKeep(slot);
    xrttiRegister(slot);
    return slot;
}

void xrttiKindMismatch(const char* name) { xthrow(new cipXTypeMismatch(name)); }
