#include "host/realmodel/CadInterfaceData.h"

#include "host/cad/ExactConversion.h"

namespace host::realmodel {

std::shared_ptr<const InterfaceData> CadInterfaceData::interfaceData() const {
    std::call_once(converted_, [this] { data_ = cad::convertToInterfaceData(*model_, partIndex_); });
    return data_;
}

std::vector<EdgeContour> contoursOf(const cad::CadFace& face) {
    std::vector<EdgeContour> contours;
    for (const cad::CadContour& contour : face.contours) {
        EdgeContour& edges = contours.emplace_back();
        edges.traversal = contour.outer ? PRO_CONTOUR_TRAV_EXTERNAL : PRO_CONTOUR_TRAV_INTERNAL;
        for (const cad::CadEdgeUse& use : contour.edges) edges.edgeIds.push_back(use.edgeId);
    }
    return contours;
}

}  // namespace host::realmodel
