// Appearance and texture records of surfaces, models and the host's default,
// and the search for texture images.
#include <filesystem>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

constexpr size_t pathCapacity = sizeof(ProPath) / sizeof(ProWchar);

// Where a record of one kind is kept, and whether a surface without one
// answers an empty record (appearances) or a failure (textures).
template <typename Props>
struct RecordSource {
    std::optional<Props> Surface::*ofSurface;
    std::optional<Props> Model::*ofModel;
    const std::optional<Props>& (Session::*byDefault)() const;
    bool emptyRecordForBareSurface;
};

// A null item asks for the default; a surface item for the surface's own
// record; the model's own item for the model's.
template <typename Props>
ProError answerRecord(const Session& session, const ProModelitem* item, Props* props,
                      const RecordSource<Props>& source) {
    if (!props) return PRO_TK_BAD_INPUTS;
    const std::optional<Props>* record = nullptr;
    if (!item) {
        record = &(session.*source.byDefault)();
    } else {
        const Model* owner = ops::modelOf(session, item->owner);
        if (!owner) return PRO_TK_BAD_INPUTS;
        if (item->type == PRO_ITEM_SURFACE) {
            const Surface* surface = owner->findSurface(item->id);
            if (!surface) return PRO_TK_E_NOT_FOUND;
            record = &(surface->*source.ofSurface);
            if (!*record && source.emptyRecordForBareSurface) {
                *props = Props{};
                return PRO_TK_NO_ERROR;
            }
        } else if (item->type == owner->type && item->id == PRO_MODEL_ITEM_ID) {
            record = &(owner->*source.ofModel);
        } else {
            return PRO_TK_BAD_INPUTS;
        }
    }
    if (!*record) return PRO_TK_E_NOT_FOUND;
    *props = **record;
    return PRO_TK_NO_ERROR;
}

std::optional<std::filesystem::path> findTexture(const Session& session, const std::filesystem::path& name) {
    std::error_code ignored;
    if (name.is_absolute()) {
        if (std::filesystem::is_regular_file(name, ignored)) return name;
        return std::nullopt;
    }
    for (const std::filesystem::path& folder : session.textureSearchPath()) {
        std::filesystem::path candidate = folder / name;
        if (std::filesystem::is_regular_file(candidate, ignored)) return candidate;
    }
    return std::nullopt;
}

}  // namespace

// A surface without an appearance of its own answers a record whose Name is
// empty; a model without one, or a session without a default, a failure.
ProError ops::ProSurfaceAppearancepropsGet(Session& session, ProModelitem* item, AppearanceProps* props) {
    static constexpr RecordSource<AppearanceProps> appearances{&Surface::appearance, &Model::appearance,
                                                               &Session::defaultAppearance, true};
    return answerRecord(session, item, props, appearances);
}

// A surface or model without textures, or a session without a default, answers a failure.
ProError ops::ProSurfaceTexturepropsGet(Session& session, ProModelitem* item, TextureProps* props) {
    static constexpr RecordSource<TextureProps> textures{&Surface::texture, &Model::texture, &Session::defaultTexture,
                                                         false};
    return answerRecord(session, item, props, textures);
}

// An absolute path that names a file answers itself; any other name is
// looked for below each folder of the session's texture search path, in
// order. Found: status 0, the path, and the flag 1. Not found: a failure,
// an empty path and the flag 0.
ProError ops::ProTexturePathGet(Session& session, const ProWchar* name, int, int* flag, ProPath path) {
    if (!name || !path) return PRO_TK_BAD_INPUTS;
    path[0] = u'\0';
    if (flag) *flag = 0;
    std::u16string_view wanted = name;
    std::optional<std::filesystem::path> found;
    if (!wanted.empty()) found = findTexture(session, std::filesystem::path(std::u16string(wanted)));
    if (!found) return PRO_TK_E_NOT_FOUND;
    copyToBuffer(path, pathCapacity, found->u16string());
    if (flag) *flag = 1;
    return PRO_TK_NO_ERROR;
}

}  // namespace host
