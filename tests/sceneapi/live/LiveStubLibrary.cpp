// A stand-in for the renderer's run-time library, built as a shared library
// by the tests. Its scene object writes every scene call in the scene file
// format to a temporary stream and records the link's calls; its query object
// answers what the test scripted. The test reaches the state through the
// exported live_stub_* functions of the same loaded copy.
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "importers/sceneapi/nvxLiveApi.h"
#include "importers/sceneapi/nvxScene_api_file.h"
#include "platform/Compiler.h"

namespace {

struct Process {
    bool attachable = true;
    bool has_scene = true;
    std::string scene;
};

struct StubState {
    std::vector<std::string> instance_texts;  // by call; the last repeats
    std::vector<bool> instance_null;
    std::size_t list_calls = 0;
    std::map<int, Process> processes;
    std::vector<int> accepted_ports;
    bool null_query = false;
    std::string calls;
    std::string scene_text;
    int roots_made = 0;
    int roots_deleted = 0;
};

StubState state;

class StubScene : public nvxScene_api_file {
public:
    explicit StubScene(FILE* stream) : nvxScene_api_file(stream, true) {}

    bool connect(const char* host, int port, int attempts) override {
        state.calls += "connect " + std::string(host) + " " + std::to_string(port) + " " +
                       std::to_string(attempts) + "\n";
        for (int accepted : state.accepted_ports)
            if (accepted == port) return true;
        return false;
    }

    bool disconnect() override {
        state.calls += "disconnect\n";
        return true;
    }
};

class StubQuery : public nvxLiveQuery {
public:
    const char* list_instances() override {
        state.calls += "list\n";
        if (state.instance_texts.empty()) return nullptr;
        std::size_t call = std::min(state.list_calls++, state.instance_texts.size() - 1);
        return state.instance_null[call] ? nullptr : state.instance_texts[call].c_str();
    }

    bool attach(int process_id) override {
        state.calls += "attach " + std::to_string(process_id) + "\n";
        auto found = state.processes.find(process_id);
        if (found == state.processes.end() || !found->second.attachable) return false;
        attached = &found->second;
        return true;
    }

    void detach() override {
        state.calls += "detach\n";
        attached = nullptr;
    }

    const char* scene_text() override {
        state.calls += "scene_text\n";
        return attached && attached->has_scene ? attached->scene.c_str() : nullptr;
    }

private:
    Process* attached = nullptr;
};

class StubRoot;
StubRoot* live_root = nullptr;

std::string read_all(FILE* stream) {
    std::fflush(stream);
    std::rewind(stream);
    std::string text;
    char buffer[4096];
    for (std::size_t count; (count = std::fread(buffer, 1, sizeof buffer, stream)) > 0;) text.append(buffer, count);
    return text;
}

class StubRoot : public nvxLiveRoot {
public:
    StubRoot() : stream(std::tmpfile()), scene(stream) { ++state.roots_made; }
    ~StubRoot() override {
        state.scene_text = read_all(stream);
        ++state.roots_deleted;
        live_root = nullptr;
    }
    nvxScene_api* scene_api() override { return &scene; }
    nvxLiveQuery* query_api() override { return state.null_query ? nullptr : &query; }
    std::string text() { return read_all(stream); }

private:
    // Closed after the scene that writes to it.
    struct Stream {
        FILE* file;
        Stream(FILE* file) : file(file) {}
        ~Stream() { std::fclose(file); }
        operator FILE*() const { return file; }
    } stream;
    StubScene scene;
    StubQuery query;
};

}  // namespace

extern "C" {

VANTREL_EXPORT nvxLiveRoot* vantrel_live_initialize() {
    live_root = new StubRoot;
    return live_root;
}

VANTREL_EXPORT void live_stub_reset() {
    std::size_t made = state.roots_made, deleted = state.roots_deleted;
    state = StubState();
    state.roots_made = static_cast<int>(made);
    state.roots_deleted = static_cast<int>(deleted);
}

// The n-th call of list_instances answers the n-th text, a null entry null;
// the last one repeats.
VANTREL_EXPORT void live_stub_script_instances(const char* const* texts, int count) {
    state.instance_texts.clear();
    state.instance_null.clear();
    for (int i = 0; i < count; ++i) {
        state.instance_texts.push_back(texts[i] ? texts[i] : "");
        state.instance_null.push_back(texts[i] == nullptr);
    }
}

// A renderer that attach may take; a null scene text makes scene_text answer null.
VANTREL_EXPORT void live_stub_set_process(int process_id, int attachable, const char* scene) {
    state.processes[process_id] = Process{attachable != 0, scene != nullptr, scene ? scene : ""};
}

VANTREL_EXPORT void live_stub_accept_port(int port) { state.accepted_ports.push_back(port); }

VANTREL_EXPORT void live_stub_answer_null_query() { state.null_query = true; }

VANTREL_EXPORT const char* live_stub_calls() { return state.calls.c_str(); }

// What the scene object wrote, binary blocks and all: while a root lives, its
// stream so far; after, all that the last root's scene wrote.
VANTREL_EXPORT const char* live_stub_scene(std::size_t* size) {
    if (live_root) state.scene_text = live_root->text();
    *size = state.scene_text.size();
    return state.scene_text.data();
}

VANTREL_EXPORT int live_stub_roots_made() { return state.roots_made; }

VANTREL_EXPORT int live_stub_roots_deleted() { return state.roots_deleted; }

}
