#include "host/cad/XdeDocument.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <XCAFApp_Application.hxx>

#include <cctype>
#include <utility>

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

namespace {

class KeptMessages : public Message_Printer {
public:
    std::vector<std::string> take() { return std::exchange(messages_, {}); }

protected:
    void send(const TCollection_AsciiString& text, const Message_Gravity gravity) const override {
        if (gravity < Message_Alarm) return;
        if (messages_.size() >= keptAtMost) messages_.erase(messages_.begin());
        std::string line = text.ToCString();
        while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back()))) line.pop_back();
        if (!line.empty()) messages_.push_back(std::move(line));
    }

private:
    static constexpr size_t keptAtMost = 40;
    mutable std::vector<std::string> messages_;
};

Handle(KeptMessages) keptMessages;

}  // namespace

void quietKernelMessages() {
    if (!keptMessages.IsNull()) return;
    keptMessages = new KeptMessages();
    const Handle(Message_Messenger)& messenger = Message::DefaultMessenger();
    messenger->RemovePrinters(STANDARD_TYPE(Message_Printer));
    messenger->AddPrinter(keptMessages);
}

std::vector<std::string> takeKernelMessages() {
    if (keptMessages.IsNull()) return {};
    return keptMessages->take();
}

}  // namespace host::cad
