#include "export/Tessellation.h"

#include <cmath>


double solidDiagonal(ProSolid solid) {
    Pro3dPnt outline[2] = {};
    if (ProSolidOutlineGet(solid, outline) != PRO_TK_NO_ERROR) return 1.0;
    double dx = outline[1][0] - outline[0][0];
    double dy = outline[1][1] - outline[0][1];
    double dz = outline[1][2] - outline[0][2];
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

double chordHeightFor(double diagonal, double quality) {
    double coarse = diagonal * 0.01 * 0.05;
    double fine = diagonal * 0.01 * 0.00001;
    double t = quality < 0.000001 ? 0.0 : std::log(quality) * 0.2 + 1.0;
    return coarse - t * (coarse - fine);
}

ProSurfaceTessellationInput makeTessellationInput(ProSolid solid, double quality) {
    ProSurfaceTessellationInput input = nullptr;
    ProSurfacetessellationinputAlloc(&input);
    ProSurfacetessellationinputChordheightSet(input, chordHeightFor(solidDiagonal(solid), quality));
    ProSurfacetessellationinputUvprojectionSet(input, 0, nullptr);
    return input;
}

namespace {

ProError tessellateAt(ProSurface surface, ProSolid solid, double quality, ProTessellation* tessellation) {
    ProSurfaceTessellationInput input = makeTessellationInput(solid, quality);
    *tessellation = nullptr;
    ProError status = ProSurfaceTessellationGet(surface, input, tessellation);
    ProSurfacetessellationinputFree(input);
    return status;
}

// A surface the host refuses at the setting is tried at finer qualities first,
// then from the same start downwards, through the setting itself.
ProError retryLadder(ProSurface surface, ProSolid solid, double setting, ProTessellation* tessellation) {
    ProError status = PRO_TK_GENERAL_ERROR;
    for (double q = setting + 0.1; q < 1.0 && status != PRO_TK_NO_ERROR; q += 0.1)
        status = tessellateAt(surface, solid, q, tessellation);
    for (double q = setting + 0.1; !(q < 0.0) && status != PRO_TK_NO_ERROR; q -= 0.1)
        status = tessellateAt(surface, solid, q, tessellation);
    return status;
}

// A host array fetched from the tessellation, with its element count; a fetch
// that fails or gives no array counts as empty.
template <typename Element>
struct HostArray {
    Element* data = nullptr;
    int size = 0;

    void release() {
        if (data) ProArrayFree(reinterpret_cast<ProArray*>(&data));
    }
};

template <typename Element>
HostArray<Element> fetchArray(ProTessellation tessellation, ProError (*fetch)(ProTessellation, Element**)) {
    HostArray<Element> array;
    if (fetch(tessellation, &array.data) != PRO_TK_NO_ERROR) array.data = nullptr;
    if (array.data) ProArraySizeGet(array.data, &array.size);
    return array;
}

void appendSurfaceMesh(ScratchArrays& buffers, ProTessellation tessellation, int indexBase, int* vertexCount) {
    auto vertices = fetchArray<Pro3dPnt>(tessellation, ProTessellationVerticesGet);
    auto normals = fetchArray<ProVector>(tessellation, ProTessellationNormalsGet);
    auto parameters = fetchArray<Pro2dPnt>(tessellation, ProTessellationParamsGet);
    auto triangles = fetchArray<ProTriangle>(tessellation, ProTessellationFacetsGet);
    *vertexCount = vertices.size;
    if (vertices.data && triangles.data) {
        for (int i = 0; i < vertices.size; ++i) {
            for (int axis = 0; axis < 3; ++axis) {
                buffers.meshVertices.push_back(static_cast<float>(vertices.data[i][axis]));
                if (i < normals.size) buffers.meshNormals.push_back(static_cast<float>(normals.data[i][axis]));
            }
            if (i < parameters.size) {
                buffers.meshUvs.push_back(static_cast<float>(parameters.data[i][0]));
                buffers.meshUvs.push_back(static_cast<float>(parameters.data[i][1]));
            }
        }
        for (int t = 0; t < triangles.size; ++t)
            for (int corner = 0; corner < 3; ++corner)
                buffers.meshTriangles.push_back(triangles.data[t][corner] + indexBase);
    }
    vertices.release();
    normals.release();
    parameters.release();
    triangles.release();
}

}  // namespace

bool tessellateSurface(ScratchArrays& buffers, ProSurface surface, ProSolid solid, double quality,
                       ProSurfaceTessellationInput input, int* indexBase) {
    int surfaceId = 0;
    ProSurfaceIdGet(surface, &surfaceId);
    ProTessellation tessellation = nullptr;
    ProError status = ProSurfaceTessellationGet(surface, input, &tessellation);
    if (status != PRO_TK_NO_ERROR) status = retryLadder(surface, solid, quality, &tessellation);
    if (status != PRO_TK_NO_ERROR || !tessellation) return false;

    int vertexCount = 0;
    appendSurfaceMesh(buffers, tessellation, *indexBase, &vertexCount);
    *indexBase += vertexCount;
    ProTessellationFree(tessellation);
    return true;
}
