#include "export/AssemblyAppearance.h"

#include "toolkit/btk/TextConversion.h"
#include "toolkit/cip/cipstd/services/cipExceptions.h"
#include "toolkit/cip/pfc/pfcObjects.h"

namespace {

// Looked for anywhere in the path, in this order, case sensitive.
constexpr const char* imageExtensions[] = {".png", ".gif", ".jpg", ".tif", ".bmp"};

void takeAppearance(const wfcAppearance& appearance, MaterialRecord& record) {
    record.intensity = static_cast<float>(appearance.GetDiffuse());
    xrchandle<pfcColorRGB> colour = appearance.GetRGBColor();
    record.red = colour->GetRed();
    record.green = colour->GetGreen();
    record.blue = colour->GetBlue();
    // An empty label leaves the name empty on this road.
    xstring label = appearance.GetLabel();
    char name[260] = {};
    if (!label.IsEmpty()) btk::narrowToBuffer(static_cast<const xwchar*>(label), name, sizeof name);
    record.name = name;
}

}  // namespace

void takeVisibleTexture(const ProWchar* pathText, MaterialRecord& record) {
    xstring path(pathText);
    if (path.IsEmpty()) return;
    if (path.Pos("\\") < 0 && path.Pos("/") < 0) {
        int flag = 0;
        ProPath found = {};
        if (ProTexturePathGet(pathText, 1, &flag, found) == PRO_TK_NO_ERROR && found[0] != 0) path = found;
    }
    for (const char* extension : imageExtensions) {
        if (path.Pos(extension) >= 0) {
            record.texture = static_cast<const xwchar*>(path);
            return;
        }
    }
}

bool readAssemblyAppearance(ProGeomitem& item, const ProAsmcomppath& fullPath, MaterialRecord& record) {
    auto path = xcheckedcast<pfcComponentPath>(wfcGetObjectFromHandle(wfcHANDLE_COMPONENTPATH, &fullPath));
    auto surface = xcheckedcast<pfcSurface>(wfcGetObjectFromHandle(wfcHANDLE_MODELITEM, &item));
    if (!path || !surface) return false;
    auto selection = xcheckedcast<wfcWSelection>(pfcCreateModelItemSelection(surface, path));
    if (!selection) return false;
    bool found = false;
    if (xrchandle<wfcAppearance> appearance = selection->GetVisibleAppearance()) {
        takeAppearance(*appearance, record);
        found = true;
    }
    // The textures count whether or not an appearance was found; the last
    // image of the sequence wins, whatever its type.
    if (xrchandle<wfcTextures> textures = selection->GetVisibleTextures()) {
        for (int index = 0; index < textures->getarraysize(); ++index) {
            xstring texturePath = textures->get(index)->GetPath();
            if (!texturePath.IsEmpty()) takeVisibleTexture(static_cast<const xwchar*>(texturePath), record);
        }
    }
    return found;
}
