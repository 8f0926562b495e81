#pragma once
// The kernel's exchange controllers, made once per process before any file
// is read or written.
namespace host::cad {

// Open CASCADE keeps what its exchange controllers allocate for the life of
// the process. Under the leak checker they are made with checking off, since
// their allocations come from deep inside the library, whose stacks the quick
// unwinder can't follow to a suppression.
void initExchangeControllers();

}  // namespace host::cad
