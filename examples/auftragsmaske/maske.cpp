#include "maske.h"

#include "fenster.h"
#include "texte.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace auftraege {

namespace {

constexpr int kMargin = 16;
constexpr int kLineHeight = 30;
constexpr int kEditHeight = 22;
constexpr int kBoxHeight = 20;
constexpr int kTextHeight = 16;
constexpr int kTextOffset = 3; // puts a label on the line of the text beside it
constexpr int kLabelWidth = 84;
constexpr std::array kColumns = {kMargin, 316};
constexpr int kGap = 8;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 26;
constexpr int kButtonTop = OrderMask::kHeight - kMargin - kButtonHeight;
constexpr int kButtonLeft = OrderMask::kWidth - kMargin - kButtonWidth;

/// The one that the windows are of.
OrderMask* openMask = nullptr;
/// What a dialog does by itself.
WNDPROC dialogProcedure = nullptr;

} // namespace

OrderMask::OrderMask(CAuftrag& order, Save save) : m_order(order), m_save(std::move(save))
{
    openMask = this;
}

OrderMask::~OrderMask()
{
    openMask = nullptr;
}

// Making the windows

void OrderMask::Create()
{
    const std::string title = "Auftrag " + Utf8(m_order.number.ConvToOFL(nullptr));
    if (!Attach(CreateWindowExA(kStyles.exDialog, "#32770", AnsiToLookAt(title), kStyles.dialog, 0,
                                0, kWidth, kHeight, nullptr, nullptr, nullptr, nullptr)))
        throw std::runtime_error("das System gibt kein Fenster her");
    dialogProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));

    for (const Field& field : Fields())
        CreateField(field);
    CreateChild("STATIC", "", kStyles.line,
                {kMargin, kButtonTop - kMargin, kWidth - 2 * kMargin, 2});
    CreateChild(
        "STATIC", "", 0,
        {kMargin, kButtonTop, kButtonLeft - kButtonWidth - kGap - 2 * kMargin, 2 * kTextHeight},
        kMessage);
    CreateChild("BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON,
                {kButtonLeft - kGap - kButtonWidth, kButtonTop, kButtonWidth, kButtonHeight}, IDOK);
    CreateChild("BUTTON", "Abbrechen", WS_TABSTOP | BS_PUSHBUTTON,
                {kButtonLeft, kButtonTop, kButtonWidth, kButtonHeight}, IDCANCEL);
    if (!UpdateData(FALSE))
        throw std::runtime_error("der Auftrag passt nicht in die Maske");
}

void OrderMask::CreateField(const Field& field)
{
    const int left = kColumns[static_cast<std::size_t>(field.place.column)];
    const int end = field.place.column == 0 ? kColumns[1] : kWidth;
    const int top = kMargin + field.place.row * kLineHeight;
    const Box box = {left + kLabelWidth, top, field.place.width, kEditHeight};
    if (field.IsBox()) {
        const DWORD kind = field.kind == Kind::Box ? BS_AUTOCHECKBOX : BS_AUTO3STATE;
        CreateChild("BUTTON", field.label, WS_TABSTOP | kind, {box.x, box.y, box.width, kBoxHeight},
                    ControlOf(field));
    } else {
        CreateChild("STATIC", field.label, 0, {left, top + kTextOffset, kLabelWidth, kTextHeight});
        const DWORD number = field.kind == Kind::Number ? kStyles.number : 0;
        HWND edit = CreateChild("EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL | number, box,
                                ControlOf(field), kStyles.exEdit);
        SendMessageA(edit, EM_LIMITTEXT, kLongestText, 0);
    }
    const int unitLeft = box.x + box.width + kGap;
    CreateChild("STATIC", field.unit, 0,
                {unitLeft, top + kTextOffset, end - kGap - unitLeft, kTextHeight});
}

HWND OrderMask::CreateChild(const char* className, const char* text, DWORD style, const Box& box,
                            int id, DWORD exStyle)
{
    HWND child =
        CreateWindowExA(exStyle, className, AnsiToLookAt(text), WS_CHILD | WS_VISIBLE | style,
                        box.x, box.y, box.width, box.height, m_hWnd,
                        reinterpret_cast<HMENU>(static_cast<LONG_PTR>(id)), nullptr, nullptr);
    if (child == nullptr)
        throw std::runtime_error("das System gibt kein Fenster her");
    return child;
}

// Using them

HWND OrderMask::GetControl(const Field& field) const
{
    return ::GetDlgItem(m_hWnd, ControlOf(field));
}

const Field* OrderMask::GetFocusedField() const
{
    return FieldOf(GetDlgCtrlID(GetFocus()));
}

void OrderMask::Press(int button)
{
    SendMessageA(::GetDlgItem(m_hWnd, button), BM_CLICK, 0, 0);
}

void OrderMask::Tell(const std::string& message)
{
    SetWindowTextA(::GetDlgItem(m_hWnd, kMessage), AnsiToLookAt(message));
}

LRESULT CALLBACK OrderMask::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // A button tells its identifier alone: it was clicked. So does the system for Enter and Escape.
    if (message == WM_COMMAND && openMask != nullptr && wParam == IDOK) {
        openMask->OnOk();
        return 0;
    }
    if (message == WM_COMMAND && openMask != nullptr && wParam == IDCANCEL) {
        openMask->OnCancel();
        return 0;
    }
    return CallWindowProcA(dialogProcedure, window, message, wParam, lParam);
}

/// Called by the system, through which no exception may pass.
void OrderMask::OnOk()
{
    SetWindowTextA(::GetDlgItem(m_hWnd, kMessage), ""); // what was told before is past
    m_state = State::Unsaved;
    try {
        if (!UpdateData()) {
            m_state = State::Refused;
            return;
        }
        m_save();
        m_state = State::Saved;
    } catch (const std::exception& error) {
        Tell(error.what());
    } catch (ZelDtExcep* error) {
        Tell(ReasonOf(error));
    } catch (CException* error) {
        error->Delete();
        Tell("Unerwarteter Fehler");
    }
}

void OrderMask::OnCancel()
{
    m_state = State::Cancelled;
}

// Exchanging data

void OrderMask::DoDataExchange(CDataExchange* dx)
{
    CWnd::DoDataExchange(dx);
    for (const Field& field : Fields())
        Exchange(dx, field);
    if (!dx->m_bSaveAndValidate)
        return;
    try {
        m_order.Check();
    } catch (const Refusal& refusal) {
        const Field& field = *FindField(refusal.column);
        dx->PrepareEditCtrl(ControlOf(field)); // so that Fail finds it
        Refuse(dx, field, refusal.reason);
    }
}

void OrderMask::Exchange(CDataExchange* dx, const Field& field)
{
    try {
        field.exchange(dx, ControlOf(field), m_order);
        if (dx->m_bSaveAndValidate)
            Require(field.constant(m_order), field.name);
    } catch (ZelDtExcep* error) {
        Refuse(dx, field, ReasonOf(error));
    } catch (const Refusal& refusal) {
        Refuse(dx, field, refusal.reason);
    }
}

/// Fail puts the user back into the field.
void OrderMask::Refuse(CDataExchange* dx, const Field& field, const std::string& reason)
{
    Tell(std::string(field.label) + ": " + reason);
    dx->Fail();
}

} // namespace auftraege
