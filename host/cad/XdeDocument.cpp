#include "host/cad/XdeDocument.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <XCAFApp_Application.hxx>

namespace host::cad {

XdeDocument::XdeDocument() {
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", document_);
}

// Layer and graph attributes hold each other; forgetting every attribute
// first unlinks them, so that closing frees them all.
XdeDocument::~XdeDocument() {
    document_->Main().Root().ForgetAllAttributes(Standard_True);
    XCAFApp_Application::GetApplication()->Close(document_);
}

void quietKernelMessages() {
    for (Message_SequenceOfPrinters::Iterator printers(Message::DefaultMessenger()->Printers()); printers.More();
         printers.Next()) {
        printers.Value()->SetTraceLevel(Message_Fail);
    }
}

}  // namespace host::cad
