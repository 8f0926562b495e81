#include "export/SolidExport.h"

#include <map>
#include <optional>
#include <vector>

#include "export/Appearances.h"
#include "export/ExactSurfaceObjects.h"
#include "export/FacetMesh.h"
#include "export/InterfaceData.h"
#include "export/MaterialEmission.h"
#include "export/MeshObject.h"
#include "export/ModelName.h"
#include "export/RunContext.h"
#include "export/SceneGroup.h"
#include "export/SolidGeometry.h"
#include "export/Tessellation.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"

namespace {

// The solid's own appearance and texture records, when the host has them.
struct SolidAppearance {
    AppearanceProps props{};
    TextureProps texture{};
    bool hasProps = false;
    bool hasTexture = false;

    const AppearanceProps* propsOrNull() const { return hasProps ? &props : nullptr; }
    const TextureProps* textureOrNull() const { return hasTexture ? &texture : nullptr; }
};

SolidAppearance readSolidAppearance(ProSolid solid, bool withTexture) {
    SolidAppearance appearance;
    ProModelitem item{};
    ProMdlToModelitem(solid, &item);
    appearance.hasProps = ProSurfaceAppearancepropsGet(&item, &appearance.props) == PRO_TK_NO_ERROR;
    if (withTexture)
        appearance.hasTexture = ProSurfaceTexturepropsGet(&item, &appearance.texture) == PRO_TK_NO_ERROR;
    return appearance;
}

using MeshGroups = std::map<MaterialRecord, std::vector<int>>;

MeshGroups groupSurfacesByAppearance(const RunContext& run, const SolidGeometry& geometry,
                                     const ProAsmcomppath& fullPath, const SolidAppearance& appearance) {
    MeshGroups groups;
    for (size_t i = 0; i < geometry.surfaces.size(); ++i) {
        int id = 0;
        ProSurfaceIdGet(geometry.surfaces[i], &id);
        ProGeomitem item{};
        ProSurfaceToGeomitem(geometry.solid, geometry.surfaces[i], &item);
        MaterialRecord record =
            resolveAppearance(run.settings.useAssemblyMaterials, &item, fullPath, appearance.propsOrNull(),
                              appearance.textureOrNull());
        groups[record].push_back(static_cast<int>(i));
    }
    return groups;
}

// The surfaces of one appearance as one mesh; with exact surfaces on, in a
// group of their own, where each surface's exact objects follow once its
// triangles were taken.
void writeMeshRow(RunContext& run, const SolidGeometry& geometry, const MaterialRecord& record,
                  const std::vector<int>& surfaceIndices, const std::string& partName,
                  ProSurfaceTessellationInput input, const ExactGeometrySource* exact) {
    std::optional<SceneGroup> exactRows;
    if (run.settings.includeNURBS) exactRows.emplace(run.scene, partName, GroupFlags::ExactRows);
    ScratchArrays& buffers = run.buffers;
    nvxScene_api& scene = *run.scene.scene();
    buffers.clearMesh();
    int indexBase = 0;
    for (int index : surfaceIndices) {
        ProSurface surface = geometry.surfaces[static_cast<size_t>(index)];
        if (tessellateSurface(buffers, surface, geometry.solid, run.settings.tessellationQuality, input,
                              &indexBase) &&
            exact)
            writeExactSurfaces(scene, buffers, *exact, surface, partName,
                               [&] { emitMaterial(scene, run.settings.separateMaterials, partName, record); });
    }
    if (buffers.meshIsWritable())
        writeMeshObject(scene, buffers, partName, record, run.settings.separateMaterials);
}

void exportSurfaces(RunContext& run, const SolidGeometry& geometry, const ProAsmcomppath& fullPath,
                    const ProAsmcomppath& localPath, const std::string& name, const ProMatrix matrix,
                    bool emitGeometry) {
    std::string partName = modelNameOf(geometry.solid);
    ProSurfaceTessellationInput input = makeTessellationInput(geometry.solid, run.settings.tessellationQuality);
    SolidAppearance appearance = readSolidAppearance(geometry.solid, true);

    SceneGroup node(run.scene, name);
    if (emitGeometry) {
        node.setFlags(GroupFlags::Solid);
        const bool nurbs = run.settings.includeNURBS;
        InterfaceTables tables;
        ExactGeometrySource exact{geometry.solid, nullptr, &tables, &geometry.surfaceIds};
        InterfaceDataRelease release{exact.interfaceData};
        if (nurbs)
            collectInterfaceData(geometry.solid, &exact.interfaceData, geometry.surfaceIds, geometry.surfaces, tables);
        MeshGroups groups = groupSurfacesByAppearance(run, geometry, fullPath, appearance);
        for (const auto& [record, surfaceIndices] : groups)
            writeMeshRow(run, geometry, record, surfaceIndices, partName, input, nurbs ? &exact : nullptr);
    }
    ProSurfacetessellationinputFree(input);
    node.place(run.plugin, fullPath, localPath, name, matrix);
}

void exportFacets(RunContext& run, const SolidGeometry& geometry, const ProAsmcomppath& fullPath,
                  const ProAsmcomppath& localPath, const std::string& name, const ProMatrix matrix,
                  bool emitGeometry) {
    std::string partName = modelNameOf(geometry.solid);
    SolidAppearance appearance = readSolidAppearance(geometry.solid, false);

    SceneGroup node(run.scene, name);
    if (emitGeometry) {
        node.setFlags(GroupFlags::Solid);
        MaterialRecord record = resolveAppearance(run.settings.useAssemblyMaterials, nullptr, fullPath,
                                                  appearance.propsOrNull(), nullptr);
        run.buffers.clearMesh();
        appendFacetMesh(geometry.facets, run.buffers);
        if (run.buffers.meshIsWritable())
            writeMeshObject(*run.scene.scene(), run.buffers, partName, record, run.settings.separateMaterials);
    }
    node.place(run.plugin, fullPath, localPath, name, matrix);
}

}  // namespace

void exportSolid(RunContext& run, ProSolid model, const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath,
                 const std::string& name, const ProMatrix matrix, bool emitGeometry) {
    SolidGeometry geometry = collectSolidGeometry(model);
    if (!geometry.surfaces.empty())
        exportSurfaces(run, geometry, fullPath, localPath, name, matrix, emitGeometry);
    if (!geometry.facets.empty()) exportFacets(run, geometry, fullPath, localPath, name, matrix, emitGeometry);
    run.buffers.clear();
}
