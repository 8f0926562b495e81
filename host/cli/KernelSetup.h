#pragma once
// What the subcommands on model files do before the kernel reads or writes one.
namespace host::cli {

void prepareKernel();

}  // namespace host::cli
