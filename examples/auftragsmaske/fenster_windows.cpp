#include "fenster.h"

namespace auftraege {

const Styles kStyles = {WS_POPUP | WS_CAPTION | WS_SYSMENU, ES_RIGHT, SS_ETCHEDHORZ,
                        WS_EX_DLGMODALFRAME, WS_EX_CLIENTEDGE};

namespace {

constexpr COLORREF kRed = RGB(176, 0, 0);

WNDPROC maskProcedure = nullptr;

/// Paints what the mask tells in red.
LRESULT CALLBACK PaintProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT answer = CallWindowProcA(maskProcedure, window, message, wParam, lParam);
    if (message == WM_CTLCOLORSTATIC &&
        reinterpret_cast<HWND>(lParam) == GetDlgItem(window, OrderMask::kMessage))
        SetTextColor(reinterpret_cast<HDC>(wParam), kRed);
    return answer;
}

BOOL CALLBACK GiveFont(HWND child, LPARAM font)
{
    SendMessageA(child, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    return TRUE;
}

/// The font of message boxes. It serves until the program ends.
HFONT SystemFont()
{
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectA(&metrics.lfMessageFont);
}

/// Gives the window the size that its inside needs, in the middle of the screen.
void Centre(HWND window)
{
    RECT frame = {0, 0, OrderMask::kWidth, OrderMask::kHeight};
    AdjustWindowRectEx(&frame, kStyles.dialog, FALSE, kStyles.exDialog);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    SetWindowPos(window, nullptr, (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                 (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, SWP_NOZORDER);
}

} // namespace

void Show(OrderMask& mask)
{
    const HWND window = mask.GetSafeHwnd();
    maskProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PaintProcedure)));
    EnumChildWindows(window, &GiveFont, reinterpret_cast<LPARAM>(SystemFont()));
    Centre(window);
    ShowWindow(window, SW_SHOWNORMAL);
    // As the tabulator key does it: with the text selected.
    SendMessageA(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(mask.GetControl(Fields().front())),
                 TRUE);
}

void Run(const OrderMask& mask)
{
    MSG message;
    while (mask.IsOpen() && GetMessageA(&message, nullptr, 0, 0) > 0) {
        // Tabulator, Enter and Escape are the dialog's.
        if (!IsDialogMessageA(mask.GetSafeHwnd(), &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

bool Rename(const std::string& from, const std::string& to)
{
    return MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE;
}

} // namespace auftraege
