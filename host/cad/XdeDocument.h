#pragma once
// An XDE document that lives as long as this object: the exchange readers fill
// one, the sample and the tests build one.
#include <TDocStd_Document.hxx>

#include <string>
#include <vector>

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

// Keeps the geometry kernel's messages off the standard streams: its
// failures and alarms are kept (the last few dozen), for the loader to add to
// the error of a file that can't be read; the rest is dropped.
void quietKernelMessages();

// The kept messages since the last call, oldest first.
std::vector<std::string> takeKernelMessages();

}  // namespace host::cad
