#pragma once
// The geometry buffers of the plug-in: the mesh of one surface group and the
// trim curves of one exact surface. They are reused for every mesh and keep
// their storage, so their capacity grows over a run and across runs.
#include <cstdint>
#include <vector>

struct ScratchArrays {
    std::vector<float> meshVertices;        // x, y, z of each vertex
    std::vector<float> meshNormals;         // x, y, z of each normal
    std::vector<float> meshUvs;             // u, v of each vertex
    std::vector<std::int32_t> meshTriangles;  // three vertex indices a triangle
    std::vector<float> reservedFloatsA;     // nothing writes these three
    std::vector<float> reservedFloatsB;
    std::vector<float> reservedFloatsC;
    std::vector<std::int32_t> trimEdgeCounts;  // curves of each contour
    std::vector<std::int32_t> trimInside;      // 0 for a hole, else 1
    std::vector<std::int32_t> edgeOrders;      // degree plus 1 of each curve
    std::vector<std::int32_t> edgeKnotCounts;
    std::vector<double> edgeMins;              // smallest knot of each curve
    std::vector<double> edgeMaxs;              // largest knot of each curve
    std::vector<double> edgeKnots;             // all curves' knots, one after the other
    std::vector<double> edgeUvws;              // u, v and weight of each control point

    // Sets the length of all fifteen to zero and keeps their storage.
    void clear() {
        meshVertices.clear();
        meshNormals.clear();
        meshUvs.clear();
        meshTriangles.clear();
        reservedFloatsA.clear();
        reservedFloatsB.clear();
        reservedFloatsC.clear();
        trimEdgeCounts.clear();
        trimInside.clear();
        edgeOrders.clear();
        edgeKnotCounts.clear();
        edgeMins.clear();
        edgeMaxs.clear();
        edgeKnots.clear();
        edgeUvws.clear();
    }
};
