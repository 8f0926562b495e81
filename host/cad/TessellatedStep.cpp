#include "host/cad/TessellatedStep.h"

#include <Interface_UndefinedContent.hxx>
#include <STEPConstruct_Styles.hxx>
#include <StepBasic_Product.hxx>
#include <StepData_UndefinedEntity.hxx>
#include <StepVisual_ColourRgb.hxx>
#include <StepVisual_CoordinatesList.hxx>
#include <StepVisual_StyledItem.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TColgp_HArray1OfXYZ.hxx>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <set>

#include "host/cad/PartBuilder.h"
#include "platform/WholeFile.h"

namespace host::cad {

namespace {

using Undefined = Handle(StepData_UndefinedEntity);

bool isType(const Undefined& entity, const char* type) {
    return !entity.IsNull() && !entity->IsSub() && entity->StepType() != nullptr &&
           std::string_view(entity->StepType()) == type;
}

Handle(Interface_UndefinedContent) contentOf(const Handle(Standard_Transient)& entity) {
    const Undefined undefined = Undefined::DownCast(entity);
    return undefined.IsNull() ? nullptr : undefined->UndefinedContent();
}

// The elements of a list parameter (a sub-entity), empty when it is none.
std::vector<Handle(Standard_Transient)> listAt(const Handle(Interface_UndefinedContent)& content, int param) {
    std::vector<Handle(Standard_Transient)> items;
    if (content.IsNull() || param > content->NbParams() || !content->IsParamEntity(param)) return items;
    const Handle(Interface_UndefinedContent) list = contentOf(content->ParamEntity(param));
    if (list.IsNull()) return items;
    for (int i = 1; i <= list->NbParams(); ++i) {
        if (list->IsParamEntity(i)) items.push_back(list->ParamEntity(i));
    }
    return items;
}

// The numbers of a list of integers or reals.
std::vector<double> numbersOf(const Handle(Standard_Transient)& listEntity) {
    std::vector<double> numbers;
    const Handle(Interface_UndefinedContent) list = contentOf(listEntity);
    if (list.IsNull()) return numbers;
    for (int i = 1; i <= list->NbParams(); ++i) {
        if (list->IsParamEntity(i)) continue;
        const Handle(TCollection_HAsciiString) value = list->ParamValue(i);
        if (!value.IsNull()) numbers.push_back(std::atof(value->ToCString()));
    }
    return numbers;
}

std::string nameOf(const Handle(Interface_UndefinedContent)& content) {
    if (content.IsNull() || content->NbParams() < 1 || content->IsParamEntity(1)) return {};
    std::string text = content->ParamValue(1).IsNull() ? "" : content->ParamValue(1)->ToCString();
    if (text.size() >= 2 && text.front() == '\'' && text.back() == '\'') text = text.substr(1, text.size() - 2);
    return text == "$" ? "" : text;
}

class FaceReader {
public:
    explicit FaceReader(std::vector<Facet>& facets) : facets_(facets) {}

    // TRIANGULATED_FACE(name, coordinates, pnmax, normals, link, pnindex, triangles);
    // COMPLEX_TRIANGULATED_FACE(name, coordinates, pnmax, normals, link, pnindex, strips, fans).
    void read(const Undefined& face) {
        const Handle(Interface_UndefinedContent) content = face->UndefinedContent();
        const auto coordinates =
            content->NbParams() >= 2 && content->IsParamEntity(2)
                ? Handle(StepVisual_CoordinatesList)::DownCast(content->ParamEntity(2))
                : Handle(StepVisual_CoordinatesList)();
        if (coordinates.IsNull() || coordinates->Points().IsNull()) return;
        points_ = coordinates->Points();
        pnindex_.clear();
        if (content->NbParams() >= 6 && content->IsParamEntity(6)) {
            for (double index : numbersOf(content->ParamEntity(6))) pnindex_.push_back(static_cast<int>(index));
        }
        if (isType(face, "TRIANGULATED_FACE")) {
            for (const Handle(Standard_Transient)& triangle : listAt(content, 7)) {
                const std::vector<double> corners = numbersOf(triangle);
                if (corners.size() == 3) add(corners[0], corners[1], corners[2]);
            }
            return;
        }
        for (const Handle(Standard_Transient)& strip : listAt(content, 7)) {
            const std::vector<double> corners = numbersOf(strip);
            // Each further corner makes a triangle with the two before it,
            // turning the other way every second time.
            for (size_t i = 2; i < corners.size(); ++i) {
                if (i % 2 == 0) add(corners[i - 2], corners[i - 1], corners[i]);
                else add(corners[i - 1], corners[i - 2], corners[i]);
            }
        }
        for (const Handle(Standard_Transient)& fan : listAt(content, 8)) {
            const std::vector<double> corners = numbersOf(fan);
            for (size_t i = 2; i < corners.size(); ++i) add(corners[0], corners[i - 1], corners[i]);
        }
    }

private:
    // A corner's point: through the face's index list when it has one.
    bool pointOf(double corner, std::array<double, 3>& point) const {
        int index = static_cast<int>(corner);
        if (!pnindex_.empty()) {
            if (index < 1 || index > static_cast<int>(pnindex_.size())) return false;
            index = pnindex_[static_cast<size_t>(index - 1)];
        }
        if (index < points_->Lower() || index > points_->Upper()) return false;
        const gp_XYZ& xyz = points_->Value(index);
        point = {xyz.X(), xyz.Y(), xyz.Z()};
        return true;
    }

    void add(double a, double b, double c) {
        Facet facet;
        if (!pointOf(a, facet.points[0]) || !pointOf(b, facet.points[1]) || !pointOf(c, facet.points[2])) return;
        const auto& p = facet.points;
        const double u[3] = {p[1][0] - p[0][0], p[1][1] - p[0][1], p[1][2] - p[0][2]};
        const double v[3] = {p[2][0] - p[0][0], p[2][1] - p[0][1], p[2][2] - p[0][2]};
        const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
        if (length > 0.0) facet.normal = {n[0] / length, n[1] / length, n[2] / length};
        facets_.push_back(facet);
    }

    std::vector<Facet>& facets_;
    Handle(TColgp_HArray1OfXYZ) points_;
    std::vector<int> pnindex_;
};

bool isFace(const Undefined& entity) {
    return isType(entity, "TRIANGULATED_FACE") || isType(entity, "COMPLEX_TRIANGULATED_FACE");
}

// The file's styled items by the label of the item they style. The kernel
// drops a styled item's reference to an entity it doesn't know, so the
// reference is read from the file's text: "#37=STYLED_ITEM('',(#36),#24);".
std::map<int, int> styledTargets(const std::filesystem::path& path) {
    const std::string text = platform::readWholeFile(path).value_or("");
    std::map<int, int> styleOfTarget;
    const std::string keyword = "STYLED_ITEM";
    for (size_t at = text.find(keyword); at != std::string::npos; at = text.find(keyword, at + keyword.size())) {
        size_t hash = text.rfind('#', at);
        const size_t equals = text.find('=', hash == std::string::npos ? at : hash);
        if (hash == std::string::npos || equals > at) continue;
        const size_t end = text.find(';', at);
        const size_t lastHash = text.rfind('#', end);
        if (end == std::string::npos || lastHash < at) continue;
        styleOfTarget[std::atoi(text.c_str() + lastHash + 1)] = std::atoi(text.c_str() + hash + 1);
    }
    return styleOfTarget;
}

class ModelIndex {
public:
    explicit ModelIndex(const Handle(StepData_StepModel)& model) : model_(model) {
        for (int i = 1; i <= model->NbEntities(); ++i) byLabel_[model->IdentLabel(model->Value(i))] = model->Value(i);
    }
    int labelOf(const Handle(Standard_Transient)& entity) const { return model_->IdentLabel(entity); }
    Handle(Standard_Transient) entityOf(int label) const {
        const auto found = byLabel_.find(label);
        return found == byLabel_.end() ? nullptr : found->second;
    }

private:
    Handle(StepData_StepModel) model_;
    std::map<int, Handle(Standard_Transient)> byLabel_;
};

std::optional<CadAppearance> colourOf(const ModelIndex& index, const std::map<int, int>& styles, int label) {
    const auto style = styles.find(label);
    if (style == styles.end()) return std::nullopt;
    const auto item = Handle(StepVisual_StyledItem)::DownCast(index.entityOf(style->second));
    if (item.IsNull()) return std::nullopt;
    Handle(StepVisual_Colour) surface, boundary, curve, render;
    double transparency = 0.0;
    bool isComponent = false;
    if (!STEPConstruct_Styles().GetColors(item, surface, boundary, curve, render, transparency, isComponent)) {
        return std::nullopt;
    }
    const auto rgb = Handle(StepVisual_ColourRgb)::DownCast(surface);
    if (rgb.IsNull()) return std::nullopt;
    CadAppearance appearance;
    appearance.red = rgb->Red();
    appearance.green = rgb->Green();
    appearance.blue = rgb->Blue();
    appearance.transparency = transparency;
    return appearance;
}

}  // namespace

TessellatedItems readTessellatedItems(const Handle(StepData_StepModel)& model, const std::filesystem::path& path) {
    TessellatedItems items;
    std::vector<TessellatedSet>& sets = items.sets;
    std::vector<Undefined> faces;
    int products = 0;
    std::set<const Standard_Transient*> inAShell;
    std::vector<Undefined> shells;
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const Undefined entity = Undefined::DownCast(model->Value(i));
        if (isFace(entity)) faces.push_back(entity);
        if (isType(entity, "TESSELLATED_SHELL") || isType(entity, "TESSELLATED_SOLID")) shells.push_back(entity);
        if (const auto product = Handle(StepBasic_Product)::DownCast(model->Value(i)); !product.IsNull()) {
            if (++products == 1 && !product->Name().IsNull()) items.productName = product->Name()->ToCString();
        }
    }
    if (products > 1) items.productName.clear();
    if (faces.empty()) return items;
    const ModelIndex index(model);
    const std::map<int, int> styles = styledTargets(path);
    const auto faceColour = [&](const Handle(Standard_Transient)& face) { return colourOf(index, styles, index.labelOf(face)); };
    for (const Undefined& shell : shells) {
        TessellatedSet set;
        set.name = nameOf(shell->UndefinedContent());
        set.appearance = colourOf(index, styles, index.labelOf(shell));
        FaceReader reader(set.facets);
        for (const Handle(Standard_Transient)& item : listAt(shell->UndefinedContent(), 2)) {
            const Undefined face = Undefined::DownCast(item);
            if (!isFace(face)) continue;
            inAShell.insert(face.get());
            reader.read(face);
            if (!set.appearance) set.appearance = faceColour(face);
        }
        if (!set.facets.empty()) sets.push_back(std::move(set));
    }
    TessellatedSet loose;
    FaceReader reader(loose.facets);
    for (const Undefined& face : faces) {
        if (inAShell.count(face.get())) continue;
        reader.read(face);
        if (!loose.appearance) loose.appearance = faceColour(face);
        if (loose.name.empty()) loose.name = nameOf(face->UndefinedContent());
    }
    if (!loose.facets.empty()) sets.push_back(std::move(loose));
    return items;
}

void addTessellatedSets(TessellatedItems items, CadModel& model) {
    std::vector<TessellatedSet>& sets = items.sets;
    if (sets.empty()) return;
    if (model.top.index < 0) {
        const std::string name =
            items.productName.empty() ? std::filesystem::path(model.sourcePath).stem().string() : items.productName;
        model.parts.push_back(buildFacetPart(name, {}));
        model.top = NodeRef{NodeKind::part, static_cast<int>(model.parts.size()) - 1};
    }
    if (model.top.kind == NodeKind::part) {
        CadPart& part = model.parts.at(static_cast<size_t>(model.top.index));
        for (TessellatedSet& set : sets) {
            if (!part.appearance) part.appearance = set.appearance;
            part.facets.insert(part.facets.end(), set.facets.begin(), set.facets.end());
        }
        part.outline = buildFacetPart(part.name, part.facets).outline;
        return;
    }
    int nextId = 1;
    for (const CadAssembly& assembly : model.assemblies) {
        for (const CadComponent& component : assembly.components) nextId = std::max(nextId, component.id + 1);
    }
    CadAssembly& top = model.assemblies.at(static_cast<size_t>(model.top.index));
    for (TessellatedSet& set : sets) {
        CadPart part = buildFacetPart(set.name.empty() ? "tessellated" : set.name, std::move(set.facets));
        part.appearance = set.appearance;
        CadComponent component;
        component.id = nextId++;
        component.target = NodeRef{NodeKind::part, static_cast<int>(model.parts.size())};
        model.parts.push_back(std::move(part));
        top.components.push_back(component);
    }
}

}  // namespace host::cad
