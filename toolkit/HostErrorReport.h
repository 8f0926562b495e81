#pragma once
// The binding's debug-error channel. It is silent unless the environment
// variable VANTREL_TOOLKIT_DEBUG is "1"; then each report goes to standard
// error and, when DBG_ERR_SHOW_DIALOG is set as well, into a dialog.

namespace toolkit {

// Reports a failure at `where` with a printf-style message. A report made
// while another one runs is dropped.
void reportHostError(const char* where, const char* format, ...);

}  // namespace toolkit
