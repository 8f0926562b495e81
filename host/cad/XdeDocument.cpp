#include "host/cad/XdeDocument.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <XCAFApp_Application.hxx>

namespace host::cad {

XdeDocument::XdeDocument() {
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", document_);
}

XdeDocument::~XdeDocument() {
    XCAFApp_Application::GetApplication()->Close(document_);
}

void quietKernelMessages() {
    for (Message_SequenceOfPrinters::Iterator printers(Message::DefaultMessenger()->Printers()); printers.More();
         printers.Next()) {
        printers.Value()->SetTraceLevel(Message_Fail);
    }
}

}  // namespace host::cad
