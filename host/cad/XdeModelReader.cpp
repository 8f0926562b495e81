#include "host/cad/XdeModelReader.h"

#include <TCollection_AsciiString.hxx>
#include <TColStd_HSequenceOfExtendedString.hxx>
#include <TDF_Tool.hxx>
#include <TDataStd_Name.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <map>

#include "host/cad/CadShapes.h"
#include "host/cad/MeshFacets.h"
#include "host/cad/PartBuilder.h"
#include "host/cad/XdeAppearances.h"

namespace host::cad {

namespace {

std::string toUtf8(const TCollection_ExtendedString& text) {
    return TCollection_AsciiString(text).ToCString();
}

// The kernel maps p to R p + t with column vectors; the row form holds the
// transpose of R in rows 0 to 2 and t in row 3.
RowMatrix rowMatrixFrom(const gp_Trsf& transform) {
    RowMatrix matrix = identityMatrix();
    const gp_XYZ translation = transform.TranslationPart();
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) matrix[i][j] = transform.Value(j + 1, i + 1);
        matrix[3][i] = translation.Coord(i + 1);
    }
    return matrix;
}

// A name that the document gave the label itself; the tools' made-up ones
// ("=>[0:1:1:2]") don't count.
std::string ownName(const TDF_Label& label) {
    Handle(TDataStd_Name) name;
    if (!label.FindAttribute(TDataStd_Name::GetID(), name)) return {};
    std::string text = toUtf8(name->Get());
    return text.rfind("=>", 0) == 0 ? std::string() : text;
}

std::string entryOf(const TDF_Label& label) {
    TCollection_AsciiString entry;
    TDF_Tool::Entry(label, entry);
    return entry.ToCString();
}

class DocumentDescriber {
public:
    DocumentDescriber(const Handle(TDocStd_Document)& document, const ModelSource& source)
        : shapes_(XCAFDoc_DocumentTool::ShapeTool(document->Main())),
          colours_(XCAFDoc_DocumentTool::ColorTool(document->Main())),
          layers_(XCAFDoc_DocumentTool::LayerTool(document->Main())),
          appearances_(document, source.path.parent_path()),
          source_(source) {}

    CadModel describe() {
        model_.sourcePath = source_.path.string();
        model_.unitName = source_.unitName;
        model_.shapes = std::make_shared<CadShapes>();
        describeLayers();
        TDF_LabelSequence roots;
        shapes_->GetFreeShapes(roots);
        if (roots.Length() == 1) {
            model_.top = node(roots.First());
        } else if (roots.Length() > 1) {
            model_.top = gather(roots);
        }
        return std::move(model_);
    }

private:
    NodeRef node(const TDF_Label& label) {
        const std::string entry = entryOf(label);
        if (auto known = known_.find(entry); known != known_.end()) return known->second;
        const NodeRef described = XCAFDoc_ShapeTool::IsAssembly(label) ? describeAssembly(label) : describePart(label);
        known_.emplace(entry, described);
        return described;
    }

    NodeRef describeAssembly(const TDF_Label& label) {
        const int index = static_cast<int>(model_.assemblies.size());
        model_.assemblies.push_back(CadAssembly{nameOf(label, index), {}});
        TDF_LabelSequence components;
        XCAFDoc_ShapeTool::GetComponents(label, components);
        for (const TDF_Label& component : components) {
            TDF_Label referred;
            XCAFDoc_ShapeTool::GetReferredShape(component, referred);
            CadComponent described = use(component, referred);
            described.instanceName = ownName(component);
            described.placement = rowMatrixFrom(XCAFDoc_ShapeTool::GetLocation(component).Transformation());
            described.appearance = appearances_.of(component);
            model_.assemblies[index].components.push_back(std::move(described));
        }
        return NodeRef{NodeKind::assembly, index};
    }

    NodeRef describePart(const TDF_Label& label) {
        const int index = static_cast<int>(model_.parts.size());
        CadPart part = buildPart(nameOf(label, index), XCAFDoc_ShapeTool::GetShape(label), appearances_.of(label),
                                 appearances_.ofPieces(label), *model_.shapes);
        if (part.faces.empty() && part.facets.empty() && namesMeshFile(part.name)) takeReferencedMesh(part);
        part.layerNames = layersOf(label);
        model_.parts.push_back(std::move(part));
        return NodeRef{NodeKind::part, index};
    }

    void takeReferencedMesh(CadPart& part) {
        const std::filesystem::path meshPath = source_.path.parent_path() / part.name;
        if (!std::filesystem::is_regular_file(meshPath)) {
            model_.warnings.push_back("part '" + part.name + "' refers to the mesh file '" + meshPath.string() +
                                      "', which does not exist");
            return;
        }
        CadPart meshPart = buildFacetPart(part.name, readStlFacets(meshPath.string()));
        if (meshPart.facets.empty()) {
            model_.warnings.push_back("the mesh file '" + meshPath.string() + "' holds no triangles");
        }
        meshPart.appearance = part.appearance;
        part = std::move(meshPart);
    }

    // Several free shapes: an assembly named after the file holds them all.
    NodeRef gather(const TDF_LabelSequence& roots) {
        const int index = static_cast<int>(model_.assemblies.size());
        model_.assemblies.push_back(CadAssembly{source_.path.stem().string(), {}});
        for (const TDF_Label& root : roots) {
            CadComponent described = use(root, root);
            model_.assemblies[index].components.push_back(std::move(described));
        }
        return NodeRef{NodeKind::assembly, index};
    }

    // A component of `referred`: ids count in the order in which the walk
    // meets components, each before what it holds.
    CadComponent use(const TDF_Label& occurrence, const TDF_Label& referred) {
        CadComponent component;
        component.id = nextComponentId_++;
        component.blanked = hidden(occurrence) || hidden(referred);
        component.layerNames = layersOf(occurrence);
        for (std::string& layer : layersOf(referred)) {
            auto& names = component.layerNames;
            if (std::find(names.begin(), names.end(), layer) == names.end()) names.push_back(std::move(layer));
        }
        component.target = node(referred);
        return component;
    }

    void describeLayers() {
        TDF_LabelSequence labels;
        layers_->GetLayerLabels(labels);
        for (const TDF_Label& label : labels) {
            TCollection_ExtendedString name;
            if (!layers_->GetLayer(label, name)) continue;
            model_.layers.push_back(CadLayer{toUtf8(name), layers_->IsVisible(label) == Standard_True});
        }
    }

    std::vector<std::string> layersOf(const TDF_Label& label) const {
        std::vector<std::string> names;
        Handle(TColStd_HSequenceOfExtendedString) layers = layers_->GetLayers(label);
        for (int i = 1; i <= layers->Length(); ++i) names.push_back(toUtf8(layers->Value(i)));
        return names;
    }

    // Invisible itself, or on a layer that is.
    bool hidden(const TDF_Label& label) const {
        if (!colours_->IsVisible(label)) return true;
        for (const std::string& name : layersOf(label)) {
            for (const CadLayer& layer : model_.layers) {
                if (layer.name == name && !layer.visible) return true;
            }
        }
        return false;
    }

    std::string nameOf(const TDF_Label& label, int index) const {
        std::string name = ownName(label);
        if (!name.empty()) return name;
        return source_.path.stem().string() + "_" + std::to_string(index + 1);
    }

    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_ColorTool) colours_;
    Handle(XCAFDoc_LayerTool) layers_;
    XdeAppearances appearances_;
    const ModelSource& source_;
    CadModel model_;
    std::map<std::string, NodeRef> known_;
    int nextComponentId_ = 1;
};

}  // namespace

CadModel describeDocument(const Handle(TDocStd_Document)& document, const ModelSource& source) {
    return DocumentDescriber(document, source).describe();
}

}  // namespace host::cad
