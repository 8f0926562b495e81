#pragma once
// The object toolkit's classes that the plug-in reaches: each interface, and
// its implementation "_tk" holding the host's handle or record. A handle is
// what the calls take and give; wrappers release their handle arguments as
// they end.
#include "toolkit/ProToolkit.h"
#include "toolkit/cip/cipstd/services/xsequence.h"
#include "toolkit/cip/pfc/pfcEnums.h"

class pfcModel : public virtual xobject {
    XOBJECT_DECLARE()
public:
    virtual ProMdl GetHandle() const = 0;
};

class pfcModel_tk : public virtual pfcModel {
    XOBJECT_DECLARE()
public:
    explicit pfcModel_tk(ProMdl model) : model(model) {}
    ProMdl GetHandle() const override { return model; }

private:
    ProMdl model;
};

class pfcModelItem : public virtual xobject {
    XOBJECT_DECLARE()
public:
    virtual const ProModelitem& GetItem() const = 0;
    virtual xrchandle<pfcModel> GetDBParent() const = 0;
};

class pfcModelItem_tk : public virtual pfcModelItem {
    XOBJECT_DECLARE()
public:
    pfcModelItem_tk(xrchandle<pfcModel> owner, const ProModelitem& item) : owner(std::move(owner)), item(item) {}
    const ProModelitem& GetItem() const override { return item; }
    xrchandle<pfcModel> GetDBParent() const override { return owner; }

private:
    xrchandle<pfcModel> owner;
    ProModelitem item;
};

class pfcSurface : public virtual pfcModelItem {
    XOBJECT_DECLARE()
};

class pfcSurface_tk : public virtual pfcSurface, public virtual pfcModelItem_tk {
    XOBJECT_DECLARE()
public:
    pfcSurface_tk(xrchandle<pfcModel> owner, const ProModelitem& item) : pfcModelItem_tk(std::move(owner), item) {}
};

// Any other model item: what kind 1 gives for an item that isn't a surface.
class pfcGeneralModelItem_tk : public virtual pfcModelItem_tk {
    XOBJECT_DECLARE()
public:
    pfcGeneralModelItem_tk(xrchandle<pfcModel> owner, const ProModelitem& item)
        : pfcModelItem_tk(std::move(owner), item) {}
};

class pfcComponentPath : public virtual xobject {
    XOBJECT_DECLARE()
public:
    virtual const ProAsmcomppath& GetPath() const = 0;
    virtual xrchandle<pfcModel> GetRoot() const = 0;
};

class pfcComponentPath_tk : public virtual pfcComponentPath {
    XOBJECT_DECLARE()
public:
    pfcComponentPath_tk(xrchandle<pfcModel> root, const ProAsmcomppath& path) : root(std::move(root)), path(path) {}
    const ProAsmcomppath& GetPath() const override { return path; }
    xrchandle<pfcModel> GetRoot() const override { return root; }

private:
    xrchandle<pfcModel> root;
    ProAsmcomppath path;
};

class pfcColorRGB : public virtual xobject {
    XOBJECT_DECLARE()
public:
    pfcColorRGB(double red, double green, double blue) : red(red), green(green), blue(blue) {}
    double GetRed() const { return red; }
    double GetGreen() const { return green; }
    double GetBlue() const { return blue; }

private:
    double red, green, blue;
};

// The appearance that the assembly shows, read from the host's record.
class wfcAppearance : public virtual xobject {
    XOBJECT_DECLARE()
public:
    explicit wfcAppearance(const AppearanceProps& props) : props(props) {}
    xstring GetName() const { return xstring(props.name); }
    xstring GetLabel() const { return xstring(props.label); }
    double GetDiffuse() const { return props.diffuse; }
    double GetTransparency() const { return props.transparency; }
    xrchandle<pfcColorRGB> GetRGBColor() const { return new pfcColorRGB(props.color[0], props.color[1], props.color[2]); }

private:
    AppearanceProps props;
};

class wfcTexture : public virtual xobject {
    XOBJECT_DECLARE()
public:
    wfcTexture(wfcTextureType type, xstring path) : type(type), path(std::move(path)) {}
    wfcTextureType GetType() const { return type; }
    xstring GetPath() const { return path; }

private:
    wfcTextureType type;
    xstring path;
};

using wfcTextures = xtcsequence<xrchandle<wfcTexture>>;

class pfcSelection : public virtual xobject {
    XOBJECT_DECLARE()
public:
    virtual xrchandle<pfcModelItem> GetSelItem() const = 0;
    virtual xrchandle<pfcComponentPath> GetPath() const = 0;
};

class wfcWSelection : public virtual pfcSelection {
    XOBJECT_DECLARE()
public:
    // The appearance that the selection shows, or null when it has none.
    xrchandle<wfcAppearance> GetVisibleAppearance() const;
    // The textures that the selection shows, or null when it has none.
    xrchandle<wfcTextures> GetVisibleTextures() const;
};

class wfcWSelection_tk : public virtual wfcWSelection {
    XOBJECT_DECLARE()
public:
    wfcWSelection_tk(xrchandle<pfcModelItem> item, xrchandle<pfcComponentPath> path)
        : item(std::move(item)), path(std::move(path)) {}
    xrchandle<pfcModelItem> GetSelItem() const override { return item; }
    xrchandle<pfcComponentPath> GetPath() const override { return path; }

private:
    xrchandle<pfcModelItem> item;
    xrchandle<pfcComponentPath> path;
};

// Kinds of host records that wfcGetObjectFromHandle wraps.
enum : int { wfcHANDLE_MODEL = 0, wfcHANDLE_MODELITEM = 1, wfcHANDLE_COMPONENTPATH = 3 };

// A host record as an object: a model (kind 0, a ProMdl*), a model item with
// its owner (kind 1, a ProModelitem*), a component path with its owner as the
// root assembly (kind 3, a ProAsmcomppath*). Any other kind raises.
xrchandle<xobject> wfcGetObjectFromHandle(int kind, const void* handle);

// A selection of a model item in a component path (which may be null). The
// path's end model must own the item, or pfcXInvalidSelection is raised.
xrchandle<pfcSelection> pfcCreateModelItemSelection(xrchandle<pfcModelItem> item, xrchandle<pfcComponentPath> path);
