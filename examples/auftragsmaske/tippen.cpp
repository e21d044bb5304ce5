#include "tippen.h"

#include "texte.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace auftraege {

namespace {

constexpr WPARAM kBackspace = 8;

[[noreturn]] void Fail(const std::string& what)
{
    throw Refusal{"", what};
}

int StateOf(const Field& field, const std::string& text)
{
    if (text == "Ja")
        return BST_CHECKED;
    if (text == "Nein")
        return BST_UNCHECKED;
    if (text.empty() && field.kind == Kind::ThreeStates)
        return BST_INDETERMINATE;
    Fail(std::string(field.name) + " kennt keinen Stand '" + text + "'");
}

Step StepOf(const std::string& raw)
{
    Step step;
    step.raw = raw;
    if (raw == "[OK]" || raw == "[Abbrechen]") {
        step.button = raw == "[OK]" ? IDOK : IDCANCEL;
        return step;
    }
    const std::size_t equals = raw.find('=');
    if (equals == std::string::npos)
        Fail("'=' fehlt");
    step.field = FindField(raw.substr(0, equals));
    if (step.field == nullptr)
        Fail("kein Feld '" + raw.substr(0, equals) + "'");
    const std::string text = raw.substr(equals + 1);
    if (step.field->IsBox())
        step.state = StateOf(*step.field, text);
    else
        step.text = Ansi(text, "");
    if (step.text.GetLength() > OrderMask::kLongestText)
        Fail(std::string(step.field->name) + ": mehr als " +
             std::to_string(OrderMask::kLongestText) + " Zeichen");
    return step;
}

void Type(HWND edit, const CString& text)
{
    SetFocus(edit);
    SendMessageA(edit, EM_SETSEL, 0, -1);
    SendMessageA(edit, WM_CHAR, kBackspace, 0);
    for (int i = 0; i < text.GetLength(); ++i)
        SendMessageA(edit, WM_CHAR, static_cast<unsigned char>(text[i]), 0);
}

void Click(HWND box, int state)
{
    constexpr int most = 3;
    for (int i = 0; i < most && SendMessageA(box, BM_GETCHECK, 0, 0) != state; ++i)
        SendMessageA(box, BM_CLICK, 0, 0);
}

void Press(int button, OrderMask& mask)
{
    mask.Press(button);
    if (!mask.IsOpen())
        return;
    const Field* const field = mask.GetFocusedField();
    std::printf("Fokus: %s\n", field != nullptr ? field->name : "in keinem Feld");
}

void Follow(const Step& step, OrderMask& mask)
{
    std::printf("%s\n", step.raw.c_str());
    if (step.field == nullptr)
        Press(step.button, mask);
    else if (step.field->IsBox())
        Click(mask.GetControl(*step.field), step.state);
    else
        Type(mask.GetControl(*step.field), step.text);
}

} // namespace

std::vector<Step> ReadSteps(const std::string& fileName)
{
    std::ifstream file(fileName, std::ios::binary);
    std::vector<Step> steps;
    std::string raw;
    for (int line = 1; std::getline(file, raw); ++line) {
        if (!raw.empty() && raw.back() == '\r')
            raw.pop_back();
        if (raw.empty())
            continue;
        try {
            steps.push_back(StepOf(raw));
            steps.back().line = line;
        } catch (const Refusal& refusal) {
            throw std::runtime_error(fileName + ", Zeile " + std::to_string(line) + ": " +
                                     refusal.reason);
        }
    }
    if (!file.eof()) // no such file, or a folder
        throw std::runtime_error(fileName + ": kann nicht gelesen werden");
    return steps;
}

void Follow(const std::vector<Step>& steps, OrderMask& mask)
{
    for (const Step& step : steps) {
        if (!mask.IsOpen()) {
            std::printf("zu spät: ab Zeile %d\n", step.line);
            return;
        }
        Follow(step, mask);
    }
    if (mask.IsOpen() && (steps.empty() || steps.back().field != nullptr))
        Follow(StepOf("[OK]"), mask);
}

} // namespace auftraege
