#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_MASKE_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_MASKE_H

// The dialog for one order, the same on Windows, where it can be seen, and on Linux, where its
// windows are only kept in memory.

#include "felder.h"

#include <functional>
#include <string>

namespace auftraege {

/// A program has one at a time.
class OrderMask : public CWnd {
public:
    /// What OK does once all values are in the order; throws what stops it.
    using Save = std::function<void()>;

    enum class State {
        Open,
        Refused, ///< open; a text was not accepted
        Unsaved, ///< open; the order was not written
        Saved,
        Cancelled
    };

    /// The inside of the window, in pixels.
    static constexpr int kWidth = 630;
    static constexpr int kHeight = 290;
    static constexpr int kMessage = 90; ///< the line that tells what was wrong
    static constexpr int kLongestText = 200;

    /// The order must outlive the mask.
    OrderMask(CAuftrag& order, Save save);
    ~OrderMask() override;

    /// Makes the windows, not yet visible, and shows the order in them.
    void Create();

    State GetState() const { return m_state; }
    bool IsOpen() const { return m_state < State::Saved; }
    HWND GetControl(const Field& field) const;
    /// The field that the user is in, null if he is in none.
    const Field* GetFocusedField() const;
    /// Presses IDOK or IDCANCEL.
    void Press(int button);

protected:
    void DoDataExchange(CDataExchange* dx) override;

    /// Tells the user, in UTF-8; here in the line at the bottom.
    virtual void Tell(const std::string& message);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    struct Box {
        int x;
        int y;
        int width;
        int height;
    };

    void CreateField(const Field& field);
    HWND CreateChild(const char* className, const char* text, DWORD style, const Box& box,
                     int id = 0, DWORD exStyle = 0);
    void Exchange(CDataExchange* dx, const Field& field);
    void Refuse(CDataExchange* dx, const Field& field, const std::string& reason);
    void OnOk();
    void OnCancel();

    CAuftrag& m_order;
    Save m_save;
    State m_state = State::Open;
};

} // namespace auftraege

#endif
