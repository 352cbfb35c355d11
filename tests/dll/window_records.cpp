// A program without a console (linked -mwindows) whose records go to the
// library's output window.  Each mode writes records and reads the window's
// text back from its EDIT control (identifier 1000); a line starting FAIL
// reports a fault.
//
//   window_records records [--hold DIR]  ten records; with --hold, writes
//                                        DIR/ready and waits for DIR/done (for
//                                        a screenshot)
//   window_records full                  more text than the control holds
//   window_records threads               four threads writing at once
//   window_records unload                through LoadLibrary, across a FreeLibrary
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "lbx3207qk.h"

namespace {

int failures = 0;

void expect(bool ok, const std::string& what)
{
    std::printf("%s %s\n", ok ? "ok  " : "FAIL", what.c_str());
    std::fflush(stdout);
    if (!ok)
        ++failures;
}

void write_record(const std::string& rec)
{
    int unit = 6;
    X04BAF(&unit, rec.data(), static_cast<int32_t>(rec.size()));
}

// The output windows of this process (other tests may show theirs at the same
// time).
BOOL CALLBACK collect_output_windows(HWND w, LPARAM found)
{
    char title[64] = "";
    DWORD pid = 0;
    GetWindowThreadProcessId(w, &pid);
    GetWindowTextA(w, title, sizeof title);
    if (pid == GetCurrentProcessId() && std::strcmp(title, "TSL Output Window") == 0)
        reinterpret_cast<std::vector<HWND>*>(found)->push_back(w);
    return TRUE;
}

std::vector<HWND> output_windows()
{
    std::vector<HWND> found;
    EnumWindows(collect_output_windows, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND output_window()
{
    auto found = output_windows();
    return found.empty() ? nullptr : found.front();
}

std::string window_text()
{
    HWND edit = GetDlgItem(output_window(), 1000);
    if (edit == nullptr)
        return "<no control 1000>";
    std::vector<char> buf(static_cast<std::size_t>(GetWindowTextLengthA(edit)) + 1);
    GetWindowTextA(edit, buf.data(), static_cast<int>(buf.size()));
    return buf.data();
}

std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t end = text.find("\r\n", at);
        if (end == std::string::npos) {
            lines.push_back(text.substr(at));
            break;
        }
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

std::string numbered(int k)
{
    char rec[81];
    std::snprintf(rec, sizeof rec, " Record %3d of the TSL Output Window: X04BAF without a console",
                  k);
    return rec;
}

int records(int argc, char** argv)
{
    expect(output_window() == nullptr, "no window before the first record");
    std::string want;
    for (int k = 1; k <= 10; ++k) {
        write_record(numbered(k) + "      ");  // trailing blanks are dropped
        want += numbered(k) + "\r\n";
    }
    write_record("     ");  // a blank record is one blank
    want += " \r\n";
    HWND w = output_window();
    expect(w != nullptr && IsWindowVisible(w), "the window is shown");
    expect(window_text() == want, "the control holds the records, one a line");
    char cls[64] = "";
    GetClassNameA(GetDlgItem(w, 1000), cls, sizeof cls);
    expect(std::strcmp(cls, "Edit") == 0 || std::strcmp(cls, "EDIT") == 0,
           "control 1000 is an EDIT control");
    LONG style = GetWindowLongA(GetDlgItem(w, 1000), GWL_STYLE);
    expect((style & ES_MULTILINE) && (style & WS_VSCROLL) && (style & WS_HSCROLL),
           "multi-line, with both scroll bars");
    expect(SendMessageA(GetDlgItem(w, 1000), EM_GETLIMITTEXT, 0, 0) == 100000, "text limit 100000");
    expect(SendMessageA(w, WM_GETICON, ICON_BIG, 0) != 0, "the window has its icon");
    if (argc >= 4 && std::strcmp(argv[2], "--hold") == 0) {
        std::filesystem::path dir = argv[3];
        std::FILE* f = std::fopen((dir / "ready").string().c_str(), "w");
        if (f != nullptr)
            std::fclose(f);
        for (int i = 0; i < 6000 && !std::filesystem::exists(dir / "done"); ++i)
            Sleep(10);
    }
    return failures;
}

int full()
{
    // 110 records of 1000 characters: more than the control's 100000.
    const int n = 110;
    for (int k = 1; k <= n; ++k) {
        std::string rec = numbered(k);
        rec.resize(1000, '.');
        write_record(rec);
    }
    std::string text = window_text();
    auto lines = lines_of(text);
    expect(text.size() <= 100000,
           "the text stays within the limit (" + std::to_string(text.size()) + ")");
    expect(
        !lines.empty() && lines.back() ==
                              [] {
                                  std::string r = numbered(110);
                                  r.resize(1000, '.');
                                  return r;
                              }(),
        "the last record is shown whole");
    bool consecutive = lines.size() >= 80;
    int first = 0;
    if (!lines.empty())
        std::sscanf(lines.front().c_str(), " Record %d", &first);
    for (std::size_t i = 0; consecutive && i < lines.size(); ++i)
        consecutive = lines[i].substr(0, 11) == numbered(first + static_cast<int>(i)).substr(0, 11);
    expect(consecutive, "older records were removed ten lines at a time, from record " +
                            std::to_string(first) + ", " + std::to_string(lines.size()) + " lines");
    expect(first > 1 && (first - 1) % 10 == 0, "whole blocks of ten lines went");
    return failures;
}

int threads()
{
    std::vector<std::thread> pool;
    for (int t = 0; t < 4; ++t)
        pool.emplace_back([t] {
            for (int k = 1; k <= 25; ++k)
                write_record(numbered(100 * (t + 1) + k));
        });
    for (auto& th : pool)
        th.join();
    auto lines = lines_of(window_text());
    expect(output_windows().size() == 1, "one window for four threads");
    expect(lines.size() == 100, "all 100 records arrived (" + std::to_string(lines.size()) + ")");
    int next[4] = {1, 1, 1, 1};
    bool intact = true;
    for (const auto& l : lines) {
        int k = 0;
        std::sscanf(l.c_str(), " Record %d", &k);
        int t = k / 100 - 1;
        intact = intact && t >= 0 && t < 4 && l == numbered(k) && k % 100 == next[t]++;
    }
    expect(intact, "every record whole and each thread's in its order");
    return failures;
}

int unload()
{
    using X04BAFType = void(LBX_CALL*)(const int*, const char*, int32_t);
    HMODULE dll = LoadLibraryA("LBX3207QK.dll");
    expect(dll != nullptr, "LoadLibrary");
    auto x04baf =
        reinterpret_cast<X04BAFType>(reinterpret_cast<void*>(GetProcAddress(dll, "X04BAF")));
    int unit = 6;
    std::string rec = numbered(1);
    x04baf(&unit, rec.data(), static_cast<int32_t>(rec.size()));
    expect(FreeLibrary(dll) != 0, "FreeLibrary");
    Sleep(300);  // the window thread keeps running its message loop
    expect(GetModuleHandleA("LBX3207QK.dll") != nullptr,
           "the DLL stays mapped while its window lives");
    HWND w = output_window();
    expect(w != nullptr && IsWindow(w), "the window survives the FreeLibrary");
    dll = LoadLibraryA("LBX3207QK.dll");
    x04baf = reinterpret_cast<X04BAFType>(reinterpret_cast<void*>(GetProcAddress(dll, "_x04baf_")));
    rec = numbered(2);
    x04baf(&unit, rec.data(), static_cast<int32_t>(rec.size()));
    expect(window_text() == numbered(1) + "\r\n" + numbered(2) + "\r\n",
           "a record after reloading goes to the same window");
    return failures;
}

}  // namespace

int main(int argc, char** argv)
{
    std::string mode = argc > 1 ? argv[1] : "";
    int rc = mode == "records"   ? records(argc, argv)
             : mode == "full"    ? full()
             : mode == "threads" ? threads()
             : mode == "unload"  ? unload()
                                 : (expect(false, "unknown mode " + mode), 1);
    return rc == 0 ? 0 : 1;
}
