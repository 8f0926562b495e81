#include "host/Session.h"

namespace host {

Model& Session::addModel(Model model) {
    Model& added = models_.emplace_back(std::move(model));
    modelAddresses_.insert(&added);
    return added;
}

const Model* Session::findModel(const void* handle) const {
    return modelAddresses_.contains(handle) ? static_cast<const Model*>(handle) : nullptr;
}

const std::u16string* Session::configOption(std::string_view name) const {
    auto found = configOptions_.find(name);
    return found == configOptions_.end() ? nullptr : &found->second;
}

}  // namespace host
