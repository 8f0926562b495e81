#pragma once
// Describes an XDE document, as the exchange readers fill it, as a CadModel.
#include <TDocStd_Document.hxx>

#include <filesystem>
#include <string>

#include "host/cad/CadModel.h"

namespace host::cad {

struct ModelSource {
    std::filesystem::path path;  // absolute; its folder holds the files that the model refers to
    std::string unitName;
};

// The document's free shapes are the top: one of them stands alone, several
// are gathered under an assembly named after the file. Each label becomes one
// part or assembly however often it is used; each use is a component with its
// placement. Unnamed nodes are named after the file and their number.
CadModel describeDocument(const Handle(TDocStd_Document)& document, const ModelSource& source);

}  // namespace host::cad
