#include "export/FacetSets.h"

#include "animation/AnimationEmission.h"
#include "export/Appearances.h"
#include "export/MeshObject.h"
#include "export/SolidExport.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/VantrelPlugin.h"

namespace {

ProError acceptFacetset(ProFacetset, ProAppData) { return PRO_TK_NO_ERROR; }
ProError acceptFacet(ProFacet, ProAppData) { return PRO_TK_NO_ERROR; }

// Each facet adds three vertices of its own, all with the facet's normal.
void appendFacet(ScratchArrays& buffers, ProFacet facet, int* runningIndex) {
    ProFacetVertex* vertices = nullptr;
    ProFacetVerticesGet(facet, &vertices);
    ProVector normal = {};
    ProFacetNormalGet(facet, normal);
    for (int corner = 0; corner < 3; ++corner) {
        Pro3dPnt point = {};
        if (vertices) ProFacetvertexPointGet(vertices[corner], point);
        for (int axis = 0; axis < 3; ++axis) {
            buffers.meshVertices.push_back(static_cast<float>(point[axis]));
            buffers.meshNormals.push_back(static_cast<float>(normal[axis]));
        }
        buffers.meshTriangles.push_back((*runningIndex)++);
    }
    ProFacetverticesFree(vertices);
}

}  // namespace

ProError collectFacet(ProFacet facet, ProError, ProAppData data) {
    static_cast<SolidGeometry*>(data)->facets.push_back(facet);
    return PRO_TK_NO_ERROR;
}

ProError collectFacetsetFacets(ProFacetset facetset, ProError, ProAppData data) {
    ProFacetsetFacetVisit(facetset, collectFacet, acceptFacet, data);
    return PRO_TK_NO_ERROR;
}

void collectFacets(ProSolid solid, SolidGeometry& geometry) {
    ProSolidFacetsetVisit(solid, collectFacetsetFacets, acceptFacetset, &geometry);
}

void exportFacets(VantrelPlugin& plugin, const SolidGeometry& geometry, const ProAsmcomppath& fullPath,
                  const ProAsmcomppath& localPath, const std::string& name, const ProMatrix matrix,
                  bool emitGeometry) {
    std::string partName = modelNameOf(geometry.solid);
    ProModelitem item{};
    ProMdlToModelitem(geometry.solid, &item);
    AppearanceProps props{};
    bool hasProps = ProSurfaceAppearancepropsGet(&item, &props) == PRO_TK_NO_ERROR;

    plugin.scene->begin_group(name);
    if (emitGeometry) {
        plugin.scene->scene()->set_flags(1024);
        MaterialRecord record =
            resolveAppearance(plugin, partName, nullptr, fullPath, hasProps ? &props : nullptr, nullptr);
        clearMeshBuffers(plugin);
        int runningIndex = 0;
        for (ProFacet facet : geometry.facets) appendFacet(plugin.scratchArrays, facet, &runningIndex);
        if (meshIsWritable(plugin)) writeMeshObject(plugin, partName, record);
    }
    emitAnimation(plugin, fullPath, localPath, name);
    plugin.scene->scene()->apply_transform(&matrix[0][0]);
    plugin.scene->end_group();
}
