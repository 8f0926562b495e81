#include "export/SolidExport.h"

#include <map>
#include <vector>

#include "animation/AnimationEmission.h"
#include "export/Appearances.h"
#include "export/ExactSurfaceObjects.h"
#include "export/InterfaceData.h"
#include "export/FacetSets.h"
#include "export/MaterialEmission.h"
#include "export/MeshObject.h"
#include "export/SolidGeometry.h"
#include "export/Tessellation.h"
#include "export/VisibilityFilters.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/VantrelPlugin.h"
#include "toolkit/btk/TextConversion.h"

std::string modelNameOf(ProMdl model) {
    ProMdlName name = {};
    ProMdlNameGet(model, name);
    name[sizeof name / sizeof name[0] - 1] = 0;
    return btk::toolkitNarrow(name);
}

namespace {

ProError collectSurface(ProSurface surface, ProError, ProAppData data) {
    auto* geometry = static_cast<SolidGeometry*>(data);
    int id = 0;
    ProSurfaceIdGet(surface, &id);
    geometry->surfaces.push_back(surface);
    geometry->surfaceIds.insert(id);
    return PRO_TK_NO_ERROR;
}

ProError collectQuiltSurfaces(ProQuilt quilt, ProError, ProAppData data) {
    ProQuiltSurfaceVisit(quilt, collectSurface, filterSurface, data);
    return PRO_TK_NO_ERROR;
}

// The solid's own appearance and texture records, when the host has them.
struct SolidAppearance {
    AppearanceProps props{};
    TextureProps texture{};
    bool hasProps = false;
    bool hasTexture = false;
};

SolidAppearance readSolidAppearance(ProSolid solid) {
    SolidAppearance appearance;
    ProModelitem item{};
    ProMdlToModelitem(solid, &item);
    appearance.hasProps = ProSurfaceAppearancepropsGet(&item, &appearance.props) == PRO_TK_NO_ERROR;
    appearance.hasTexture = ProSurfaceTexturepropsGet(&item, &appearance.texture) == PRO_TK_NO_ERROR;
    return appearance;
}

using MeshGroups = std::map<MaterialRecord, std::vector<int>>;

MeshGroups groupSurfacesByAppearance(VantrelPlugin& plugin, const SolidGeometry& geometry,
                                     const ProAsmcomppath& fullPath, const std::string& partName,
                                     const SolidAppearance& appearance) {
    MeshGroups groups;
    for (size_t i = 0; i < geometry.surfaces.size(); ++i) {
        int id = 0;
        ProSurfaceIdGet(geometry.surfaces[i], &id);
        ProGeomitem item{};
        ProSurfaceToGeomitem(geometry.solid, geometry.surfaces[i], &item);
        MaterialRecord record =
            resolveAppearance(plugin, partName, &item, fullPath, appearance.hasProps ? &appearance.props : nullptr,
                              appearance.hasTexture ? &appearance.texture : nullptr);
        groups[record].push_back(static_cast<int>(i));
    }
    return groups;
}

// With NURBS on, `exact` gives each surface's exact objects, written after
// its triangles were taken.
void writeMeshGroup(VantrelPlugin& plugin, const SolidGeometry& geometry, const MaterialRecord& record,
                    const std::vector<int>& surfaceIndices, const std::string& partName,
                    ProSurfaceTessellationInput input, const ExactGeometrySource* exact) {
    const bool nurbs = plugin.settings.includeNURBS;
    if (nurbs) {
        plugin.scene->begin_group(partName);
        plugin.scene->scene()->set_flags(66560);
    }
    clearMeshBuffers(plugin);
    int indexBase = 0;
    for (int index : surfaceIndices) {
        ProSurface surface = geometry.surfaces[static_cast<size_t>(index)];
        if (tessellateSurface(plugin, surface, record, geometry.solid, partName, input, &indexBase) && exact)
            writeExactSurfaces(*plugin.scene->scene(), plugin.scratchArrays, *exact, surface, partName,
                               [&] { emitMaterial(plugin, partName, record); });
    }
    if (meshIsWritable(plugin)) writeMeshObject(plugin, partName, record);
    if (nurbs) plugin.scene->end_group();
}

void exportSurfaces(VantrelPlugin& plugin, const SolidGeometry& geometry, const ProAsmcomppath& fullPath,
                    const ProAsmcomppath& localPath, const std::string& name, const ProMatrix matrix,
                    bool emitGeometry) {
    std::string partName = modelNameOf(geometry.solid);
    ProSurfaceTessellationInput input =
        makeTessellationInput(plugin, geometry.solid, plugin.settings.tessellationQuality);
    SolidAppearance appearance = readSolidAppearance(geometry.solid);

    plugin.scene->begin_group(name);
    if (emitGeometry) {
        plugin.scene->scene()->set_flags(1024);
        InterfaceTables tables;
        ExactGeometrySource exact{geometry.solid, nullptr, &tables, &geometry.surfaceIds};
        if (plugin.settings.includeNURBS)
            collectInterfaceData(geometry.solid, &exact.interfaceData, geometry.surfaceIds, geometry.surfaces, tables);
        MeshGroups groups = groupSurfacesByAppearance(plugin, geometry, fullPath, partName, appearance);
        for (const auto& [record, surfaceIndices] : groups)
            writeMeshGroup(plugin, geometry, record, surfaceIndices, partName, input,
                           plugin.settings.includeNURBS ? &exact : nullptr);
        freeInterfaceData(exact.interfaceData);
    }
    ProSurfacetessellationinputFree(input);
    emitAnimation(plugin, fullPath, localPath, name);
    plugin.scene->scene()->apply_transform(&matrix[0][0]);
    plugin.scene->end_group();
}

}  // namespace

void exportSolid(VantrelPlugin& plugin, ProSolid model, const ProAsmcomppath& fullPath,
                 const ProAsmcomppath& localPath, std::string name, const ProMatrix matrix, bool emitGeometry) {
    SolidGeometry geometry;
    geometry.solid = model;
    ProSolidSurfaceVisit(model, collectSurface, filterSurface, &geometry);
    ProSolidQuiltVisit(model, collectQuiltSurfaces, filterQuilt, &geometry);
    collectFacets(model, geometry);
    if (!geometry.surfaces.empty())
        exportSurfaces(plugin, geometry, fullPath, localPath, name, matrix, emitGeometry);
    if (!geometry.facets.empty()) exportFacets(plugin, geometry, fullPath, localPath, name, matrix, emitGeometry);
    plugin.scratchArrays.clear();
}
