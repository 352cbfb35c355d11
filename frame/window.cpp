// The output window of the Windows DLL: where records meant for the console go
// when the calling process has no console (a windowed application).
//
// The window is a dialog built from a template in memory, with a read-only
// multi-line EDIT control (identifier 1000) that holds the records.  It is
// created on the first record that needs it, in a thread of its own that runs
// its message loop for the rest of the process; the thread pins the DLL, so
// that a FreeLibrary cannot unmap the code the loop runs.  Other threads
// append to the control by messages.  On other platforms this file is empty.
#ifdef _WIN32

#include "frame/window.hpp"

#include <process.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace lbx::frame::window {

HWND window_handle = nullptr;
volatile LONG created = 0;
volatile LONG suppressed = 0;
volatile LONG full = 0;

namespace {

constexpr int edit_id = 1000;
constexpr int text_limit = 100000;
constexpr const char* title = "TSL Output Window";

HWND edit_handle = nullptr;
HWND hidden_handle = nullptr;

// Accelerator commands.
enum Command : WORD {
    select_all = 40001,
    copy_text,
    copy_insert,
    clear_text,
    go_top,
    go_bottom,
    suppress_output,
};

// ---------------------------------------------------------------- the icon
// A 32 by 32 icon with 16 colours: a white page with blue lines of text in a
// dark blue frame.  Header, palette, colour bits (4 per pixel, bottom row
// first) and the AND mask (1 bit per pixel, all shown): 744 bytes.
constexpr std::size_t icon_bytes = 40 + 16 * 4 + 32 * 32 / 2 + 32 * 32 / 8;
static_assert(icon_bytes == 744);

constexpr std::array<std::uint8_t, icon_bytes> make_icon()
{
    std::array<std::uint8_t, icon_bytes> b{};
    auto put32 = [&b](std::size_t at, std::uint32_t v) {
        for (int i = 0; i < 4; ++i)
            b[at + i] = static_cast<std::uint8_t>(v >> (8 * i));
    };
    put32(0, 40);  // header size
    put32(4, 32);  // width
    put32(8, 64);  // height: colour bits and mask
    b[12] = 1;     // planes
    b[14] = 4;     // bits per pixel
    put32(20, 32 * 32 / 2 + 32 * 32 / 8);
    // Palette (blue, green, red, 0): 0 black, 1 dark blue, 2 blue, 3 white.
    const std::uint32_t palette[4] = {0x000000, 0x800000, 0xd07020, 0xffffff};
    for (int i = 0; i < 4; ++i)
        put32(40 + 4 * i, palette[i]);
    const std::size_t pixels = 40 + 16 * 4;
    for (int row = 0; row < 32; ++row) {  // row 0 is the bottom
        int y = 31 - row;
        for (int x = 0; x < 32; ++x) {
            int colour = 3;
            if (x < 2 || x > 29 || y < 2 || y > 29)
                colour = 1;
            else if (y >= 6 && y <= 26 && (y - 6) % 4 < 2 && x >= 6 && x <= (y % 8 == 2 ? 18 : 25))
                colour = 2;
            std::size_t at =
                pixels + static_cast<std::size_t>(row) * 16 + static_cast<std::size_t>(x) / 2;
            b[at] = static_cast<std::uint8_t>(b[at] | (x % 2 == 0 ? colour << 4 : colour));
        }
    }
    return b;  // the mask stays zero: every pixel shown
}

constexpr auto icon_image = make_icon();

// ---------------------------------------------------------------- dialog templates
// A DLGTEMPLATE followed by its menu, class, title and (with DS_SETFONT) the
// font, as 16-bit words.
std::vector<WORD> dialog_template(DWORD style, short cx, short cy, const wchar_t* caption)
{
    std::vector<WORD> t(sizeof(DLGTEMPLATE) / sizeof(WORD), 0);
    DLGTEMPLATE head{};
    head.style = style;
    head.dwExtendedStyle = 0;
    head.cdit = 0;
    head.x = 10;
    head.y = 10;
    head.cx = cx;
    head.cy = cy;
    std::memcpy(t.data(), &head, sizeof head);
    t.push_back(0);  // no menu
    t.push_back(0);  // the standard dialog class
    for (const wchar_t* c = caption; *c != 0; ++c)
        t.push_back(static_cast<WORD>(*c));
    t.push_back(0);
    if ((style & DS_SETFONT) != 0) {
        t.push_back(9);  // point size
        for (const wchar_t* c = L"MS Shell Dlg"; *c != 0; ++c)
            t.push_back(static_cast<WORD>(*c));
        t.push_back(0);
    }
    return t;
}

// ---------------------------------------------------------------- the dialog
void fit_edit(HWND dialog)
{
    RECT r;
    if (edit_handle != nullptr && GetClientRect(dialog, &r))
        MoveWindow(edit_handle, 0, 0, r.right, r.bottom, TRUE);
}

int add_record(std::string_view rec);
constexpr UINT record_message = WM_APP + 1;

INT_PTR CALLBACK dialog_proc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam)
{
    switch (msg) {
        case WM_INITDIALOG:
            return TRUE;
        case record_message:
            SetWindowLongPtrA(dialog, DWLP_MSGRESULT,
                              add_record(*reinterpret_cast<const std::string_view*>(lparam)));
            return TRUE;
        case WM_SIZE:
            fit_edit(dialog);
            return TRUE;
        case WM_CLOSE:
            // Closing the window drops the records that follow.
            InterlockedExchange(&suppressed, 1);
            ShowWindow(dialog, SW_HIDE);
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wparam) == edit_id && HIWORD(wparam) == EN_MAXTEXT) {
                InterlockedExchange(&full, 1);
                return TRUE;
            }
            switch (LOWORD(wparam)) {
                case select_all:
                    SendMessageA(edit_handle, EM_SETSEL, 0, -1);
                    return TRUE;
                case copy_text:
                case copy_insert:
                    SendMessageA(edit_handle, WM_COPY, 0, 0);
                    return TRUE;
                case clear_text:
                    SetWindowTextA(edit_handle, "");
                    return TRUE;
                case go_top:
                    SendMessageA(edit_handle, EM_SETSEL, 0, 0);
                    SendMessageA(edit_handle, EM_SCROLLCARET, 0, 0);
                    return TRUE;
                case go_bottom:
                    SendMessageA(edit_handle, EM_SETSEL, -1, -1);
                    SendMessageA(edit_handle, EM_SCROLLCARET, 0, 0);
                    return TRUE;
                case suppress_output:
                    PostMessageA(dialog, WM_CLOSE, 0, 0);
                    return TRUE;
                default:
                    break;
            }
            break;
        default:
            break;
    }
    return FALSE;
}

INT_PTR CALLBACK hidden_proc(HWND, UINT msg, WPARAM, LPARAM)
{
    return msg == WM_INITDIALOG ? TRUE : FALSE;
}

HMODULE this_module()
{
    HMODULE m = nullptr;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCSTR>(&dialog_proc), &m);
    return m;
}

void window_thread(void*)
{
    // The loop below runs this module's code for the rest of the process.
    HMODULE pinned = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCSTR>(&dialog_proc), &pinned);
    HINSTANCE instance = this_module();

    auto main_template = dialog_template(WS_OVERLAPPEDWINDOW | DS_SETFONT | DS_CENTER, 600, 400,
                                         L"TSL Output Window");
    HWND dialog = CreateDialogIndirectParamA(
        instance, reinterpret_cast<LPCDLGTEMPLATEA>(main_template.data()), nullptr, dialog_proc, 0);
    if (dialog == nullptr) {
        MessageBoxA(nullptr, "Failed to create TSL output dialog", "Error", MB_ICONINFORMATION);
        return;
    }
    auto hidden_template = dialog_template(WS_POPUP | DS_SETFONT, 10, 10, L"");
    hidden_handle = CreateDialogIndirectParamA(
        instance, reinterpret_cast<LPCDLGTEMPLATEA>(hidden_template.data()), dialog, hidden_proc,
        0);

    RECT size{0, 0, 600, 400};  // dialog units
    MapDialogRect(dialog, &size);
    edit_handle =
        CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", "",
                        WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                            ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_READONLY,
                        0, 0, size.right, size.bottom, dialog,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(edit_id)), instance, nullptr);
    SendMessageA(edit_handle, WM_SETFONT, SendMessageA(dialog, WM_GETFONT, 0, 0), FALSE);
    SendMessageA(edit_handle, EM_SETLIMITTEXT, text_limit, 0);
    fit_edit(dialog);

    HICON icon = CreateIconFromResourceEx(const_cast<PBYTE>(icon_image.data()), icon_bytes, TRUE,
                                          0x00030000, 32, 32, LR_DEFAULTCOLOR);
    if (icon != nullptr) {
        SendMessageA(dialog, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
        SendMessageA(dialog, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
    }

    ACCEL keys[7] = {
        {FVIRTKEY | FCONTROL, 'A', select_all},        {FVIRTKEY | FCONTROL, 'C', copy_text},
        {FVIRTKEY | FCONTROL, VK_INSERT, copy_insert}, {FVIRTKEY | FCONTROL, VK_DELETE, clear_text},
        {FVIRTKEY | FCONTROL, VK_HOME, go_top},        {FVIRTKEY | FCONTROL, VK_END, go_bottom},
        {FVIRTKEY | FCONTROL, 'Q', suppress_output},
    };
    HACCEL table = CreateAcceleratorTableA(keys, 7);

    ShowWindow(dialog, SW_SHOWNORMAL);
    window_handle = dialog;
    InterlockedExchange(&created, 1);

    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        if (table != nullptr && TranslateAcceleratorA(dialog, table, &msg))
            continue;
        if (IsDialogMessageA(dialog, &msg))
            continue;
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

// Selects from the start of the text to the start of line min(n, lines) and
// removes it.
void delete_first_lines(int n)
{
    SendMessageA(edit_handle, WM_SETREDRAW, FALSE, 0);
    auto lines = static_cast<int>(SendMessageA(edit_handle, EM_GETLINECOUNT, 0, 0));
    auto end =
        SendMessageA(edit_handle, EM_LINEINDEX, static_cast<WPARAM>(n < lines ? n : lines), 0);
    if (end < 0)
        end = GetWindowTextLengthA(edit_handle);
    SendMessageA(edit_handle, EM_SETSEL, 0, end);
    SendMessageA(edit_handle, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(""));
    SendMessageA(edit_handle, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(edit_handle, nullptr, TRUE);
}

// Adds one line at the start of the control's last line; if the control
// reports itself full, what did go in is removed again.  Runs in the window's
// thread.
void append_line(std::string_view rec)
{
    while (!rec.empty() && rec.back() == '\n')
        rec.remove_suffix(1);
    std::string line(rec);
    line += "\r\n";
    InterlockedExchange(&full, 0);
    auto lines = SendMessageA(edit_handle, EM_GETLINECOUNT, 0, 0);
    auto start = SendMessageA(edit_handle, EM_LINEINDEX, static_cast<WPARAM>(lines - 1), 0);
    SendMessageA(edit_handle, EM_SETSEL, start, start);
    SendMessageA(edit_handle, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(line.c_str()));
    if (full != 0) {
        SendMessageA(edit_handle, EM_SETSEL, start, -1);
        SendMessageA(edit_handle, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(""));
    }
}

// A record: appended, and while the control is full, up to 10 times, the
// first 10 lines removed and the record appended again.  Runs in the window's
// thread, so that records of several threads never mix.  Returns the number of
// lines appended.
int add_record(std::string_view rec)
{
    append_line(rec);
    int appended = 1;
    for (int i = 0; i < 10 && full != 0; ++i) {
        delete_first_lines(10);
        append_line(rec);
        ++appended;
    }
    return appended;
}

void create()
{
    // One thread creates the window; the others wait for it.
    static volatile LONG starting = 0;
    if (InterlockedCompareExchange(&starting, 1, 0) != 0) {
        for (int i = 0; i < 1000 && created == 0; ++i)
            Sleep(10);
        return;
    }
    if (_beginthread(window_thread, 0, nullptr) == static_cast<std::uintptr_t>(-1)) {
        MessageBoxA(nullptr, "Could not start new thread for TSL Output Window",
                    "Failed to create TSL Output Window", MB_ICONEXCLAMATION);
        return;
    }
    for (int i = 0; i < 1000 && created == 0; ++i)
        Sleep(10);
}

}  // namespace

bool has_console()
{
    char buffer[1000];
    return GetConsoleTitleA(buffer, sizeof buffer) >= 1;
}

void show_record(std::string_view rec)
{
    if (suppressed != 0)
        return;
    if (window_handle == nullptr)
        create();
    if (window_handle == nullptr || created == 0)
        return;
    auto appended = SendMessageA(window_handle, record_message, 0, reinterpret_cast<LPARAM>(&rec));
    // Gives the window time to paint, line by line.
    for (LRESULT i = 0; i < appended; ++i)
        Sleep(10);
}

}  // namespace lbx::frame::window

// Static runtimes (libgomp among them) keep threads that run this module's
// code: the DLL stays loaded for the life of the process.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID);
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        HMODULE pinned = nullptr;
        GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                           reinterpret_cast<LPCSTR>(instance), &pinned);
    }
    return TRUE;
}

#endif  // _WIN32
