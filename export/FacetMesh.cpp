#include "export/FacetMesh.h"

namespace {

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

void appendFacetMesh(const std::vector<ProFacet>& facets, ScratchArrays& buffers) {
    int runningIndex = 0;
    for (ProFacet facet : facets) appendFacet(buffers, facet, &runningIndex);
}
