#pragma once
// The object toolkit's own descriptions of its types, by full name
// ("module::Type"), built on first request and kept for the life of the
// process in one dictionary. Checked casts compare against them.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/cip/cipstd/services/xobject.h"
#include "toolkit/cip/cipstd/strlibsrc/xstring.h"

class xrttiattr;

class xrtti : public virtual xobject {
public:
    explicit xrtti(const char* name = "");
    ~xrtti() override;
    xrttiobject* xgetrtti() const override;

    virtual xstring GetName() const;
    // This one, or one of the same name, by bytes.
    virtual bool IsSame(const xrtti* other) const;
    // The other accepts "any", or is the same.
    virtual bool IsAssignable(const xrtti* other) const;
    virtual void AddAttribute(const char* key, xrttiattr* attribute);
    virtual xrttiattr* GetAttribute(const char* key) const;
    virtual void SetName(const char* name);
    virtual const char* KindName() const;

    // The attribute map, null until the first AddAttribute.
    bool HasAttributeMap() const { return attributes != nullptr; }

private:
    xstring name;
    std::unique_ptr<std::map<std::string, xrttiattr*>> attributes;
};

// The basic types, as the one shared description "any".
class xrttibasic : public xrtti {
public:
    using xrtti::xrtti;
    const char* KindName() const override;
    static xrttibasic* any();
};

// An enumeration: the names of its values in order; a value is its place.
class xrttienum : public xrtti {
public:
    xrttienum(const char* name, std::vector<const char*> values);
    const char* KindName() const override;
    int GetValueCount() const { return static_cast<int>(values.size()); }
    const char* GetValueName(int value) const;

private:
    std::vector<const char*> values;
};

// A class: whether it is reference-countable, and its bases in order.
class xrttiobject : public xrtti {
public:
    xrttiobject(const char* name, bool refCountable, std::vector<xrttiobject*> bases);
    const char* KindName() const override;
    virtual bool IsRefCountable() const;
    virtual int GetBaseCount() const;
    virtual xrttiobject* GetBase(int index) const;
    void SetBases(std::vector<xrttiobject*> list) { bases = std::move(list); }

private:
    bool refCountable;
    std::vector<xrttiobject*> bases;
};

// One attribute of a class: its name, its type and whether it is optional.
class xrttiattr : public xrtti {
public:
    xrttiattr(const char* name, xrtti* type, bool optional);
    const char* KindName() const override;
    xrtti* GetType() const { return type; }
    bool IsOptional() const { return optional; }

private:
    xrtti* type;
    bool optional;
};

// The dictionary of descriptions: null for an unknown name, which creates nothing.
xrtti* xrttiFind(const char* name);
// Stores a description under its name, replacing one of that name.
void xrttiRegister(xrtti* description);
// Keeps a description made by a getter for as long as the code that made it:
// until the process ends, or the library that holds the getter is unloaded.
void xrttiKeep(xrtti* description);

// The getter of a class's description: the static slot first, then the
// dictionary (a description made elsewhere in the process), and only then a
// new one, stored in the slot before its bases are asked for so that classes
// that refer to each other end.
template <typename... Bases>
xrttiobject* xrttiDescribe(xrttiobject*& slot, const char* name, bool refCountable = true);

// The same for an enumeration.
xrttienum* xrttiDescribeEnum(xrttienum*& slot, const char* name, std::vector<const char*> values);

// A description found under the name but of another kind.
[[noreturn]] void xrttiKindMismatch(const char* name);

template <typename... Bases>
xrttiobject* xrttiDescribe(xrttiobject*& slot, const char* name, bool refCountable) {
    if (slot) return slot;
    if (xrtti* found = xrttiFind(name)) {
        slot = dynamic_cast<xrttiobject*>(found);
        if (!slot) xrttiKindMismatch(name);
        return slot;
    }
    auto* description = new xrttiobject(name, refCountable, {});
    xrttiKeep(description);
    slot = description;
    description->SetBases({Bases::xrttiGet()...});
    xrttiRegister(description);
    return description;
}

// The cast of a class through its bases, pointer adjusted for the type found.
template <typename Class, typename... Bases>
void* xcastThrough(Class* self, const xrtti* type) {
    if (type->IsSame(Class::xrttiGet())) return self;
    void* found = nullptr;
    ((found = found ? found : static_cast<Bases*>(self)->Bases::xcast(type)), ...);
    return found;
}
