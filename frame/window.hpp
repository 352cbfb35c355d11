// The output window of the Windows DLL (frame/window.cpp).
#pragma once

#ifdef _WIN32

#include <windows.h>

#include <string_view>

namespace lbx::frame::window {

// Process-wide state: the window (null until created), set once its thread
// runs; suppressed drops window output (set when the user closes the window);
// full while the text control refuses text.
extern HWND window_handle;
extern volatile LONG created;
extern volatile LONG suppressed;
extern volatile LONG full;

// Whether the process has a console: a console title of at least one character.
bool has_console();

// Shows a record in the output window, creating the window on first use;
// dropped when output is suppressed or the window cannot be created.
void show_record(std::string_view rec);

}  // namespace lbx::frame::window

#endif
