#pragma once
// An XDE document that lives as long as this object: the exchange readers fill
// one, the sample and the tests build one.
#include <TDocStd_Document.hxx>

namespace host::cad {

class XdeDocument {
public:
    XdeDocument();
    ~XdeDocument();
    XdeDocument(const XdeDocument&) = delete;
    XdeDocument& operator=(const XdeDocument&) = delete;

    const Handle(TDocStd_Document)& get() const { return document_; }

private:
    Handle(TDocStd_Document) document_;
};

// Keeps the geometry kernel's reports of its own progress off the standard
// streams; failures still show.
void quietKernelMessages();

}  // namespace host::cad
