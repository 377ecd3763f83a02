// The size, place, font and density of a form, and its layout.
#include <algorithm>
#include <limits>
#include <utility>

#include "ui/dpi.h"
#include "ui/form.h"

namespace tamblin {
namespace {

// Controls that move are painted anew, not copied: in a batch one control's new place may be
// another's old one, which is then no longer there to be copied from. They are painted, and their
// frames drawn, once all have moved: until then one may stand where another still is. Those that
// stay are left alone.
class MoveTogether : public Placement {
  public:
    explicit MoveTogether(size_t count) : moves(BeginDeferWindowPos(static_cast<int>(count))) {}
    ~MoveTogether() override {
        EndDeferWindowPos(moves);
        if (!moved.empty())
            RedrawWindow(GetParent(moved.front()), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
        for (const HWND control : moved)
            RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
    void Put(HWND control, const Place& place) override {
        if (Stands(control, place))
            return;
        moved.push_back(control);
        moves = DeferWindowPos(moves, control, nullptr, place.left, place.top, place.width,
                               place.height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }

  private:
    static bool Stands(HWND control, const Place& place) {
        RECT area{};
        GetWindowRect(control, &area);
        MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&area), 2);
        return area.left == place.left && area.top == place.top &&
               area.right - area.left == place.width && area.bottom - area.top == place.height;
    }

    HDWP moves;
    std::vector<HWND> moved;
};

// How far across controls would reach, without moving them.
class Reach : public Placement {
  public:
    void Put(HWND, const Place& place) override {
        left = std::min(left, place.left);
        right = std::max(right, place.left + place.width);
    }
    // With as much room on the right as on the left.
    bool IsWithin(int width) const { return right <= width - left; }

  private:
    int left = std::numeric_limits<int>::max();
    int right = 0;
};

} // namespace

void Form::SetDensity(unsigned newDpi) {
    dpi = newDpi;
    WriteAtDensity(dpi);
    FitTextToScreen();
}

// Better a smaller text than the user has chosen than controls that cannot be reached. Never
// smaller than on a screen without scaling.
void Form::FitTextToScreen() {
    constexpr unsigned least = 96;
    unsigned textDpi = dpi;
    while (textDpi > least && !FitsScreen()) {
        textDpi = std::max(least, textDpi * 15 / 16);
        WriteAtDensity(textDpi);
    }
}

bool Form::FitsScreen() const {
    if (!layout)
        return true;
    const Size size = MinimumSize();
    Reach reach;
    layout->Arrange({0, 0, size.width, size.height}, *measure, reach);
    return size.height <= RoomOnScreen().height && reach.IsWithin(size.width);
}

void Form::WriteAtDensity(unsigned textDpi) {
    const GdiObject<HFONT> former = std::exchange(font, CreateMessageFont(textDpi));
    measure = std::make_unique<TextMeasure>(font.get());
    for (Control* control : controls)
        control->SetFont(*measure);
}

void Form::DensityChanged(unsigned newDpi, const RECT& suggested) {
    SetDensity(newDpi);
    const RECT least = FrameAround(MinimumSize());
    const LONG width = std::max(suggested.right - suggested.left, least.right - least.left);
    const LONG height = std::max(suggested.bottom - suggested.top, least.bottom - least.top);
    SetWindowPos(handle, nullptr, suggested.left, suggested.top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
    InvalidateRect(handle, nullptr, TRUE);
}

// The user has chosen another font or other colours for all programs.
void Form::AppearanceChanged() {
    RECT window{};
    GetWindowRect(handle, &window);
    DensityChanged(dpi, window);
}

// Room for the layout and for the title, with its icon and boxes beside it.
Size Form::MinimumSize() const {
    if (!layout)
        return {};
    ++layoutPass;
    Size least = layout->Minimum(*measure);
    if (GetWindowLongW(handle, GWL_STYLE) & WS_DLGFRAME) {
        std::wstring title(static_cast<size_t>(GetWindowTextLengthW(handle)) + 1, L'\0');
        GetWindowTextW(handle, title.data(), static_cast<int>(title.size()));
        title.pop_back();
        least.width = std::max(least.width, measure->Width(title) + measure->Across(70));
    }
    // On a narrow screen texts wrap instead.
    if (const int room = RoomOnScreen().width; least.width > room)
        return {room, layout->HeightFor(room, *measure)};
    return least;
}

Size Form::FirstSize() const {
    const Size least = MinimumSize();
    return {std::max(least.width, measure->Across(firstSize.width)),
            std::max(least.height, measure->Down(firstSize.height))};
}

Size Form::RoomOnScreen() const {
    const HWND below = IsWindowVisible(handle) ? nullptr : WindowBelow();
    const RECT work = WorkAreaOf(below ? below : handle);
    const RECT frame = FrameAround({});
    return {static_cast<int>(work.right - work.left - (frame.right - frame.left)),
            static_cast<int>(work.bottom - work.top - (frame.bottom - frame.top))};
}

RECT Form::FrameAround(Size clientSize) const {
    const RECT client{0, 0, clientSize.width, clientSize.height};
    const auto style = static_cast<DWORD>(GetWindowLongW(handle, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(handle, GWL_EXSTYLE));
    return AroundClientArea(client, style, extendedStyle, dpi);
}

void Form::Arrange() {
    if (!layout)
        return;
    RECT client{};
    GetClientRect(handle, &client);
    ++layoutPass;
    {
        MoveTogether together(controls.size());
        layout->Arrange({0, 0, client.right, client.bottom}, *measure, together);
    }
    Arranged();
    // Before the next size: otherwise a dragged edge leaves the picture behind.
    PaintNow();
}

// The first time a form is shown it stands in the middle of the window below it or of the screen.
void Form::PutInPlace() {
    FitTextToScreen();
    const RECT frame = FrameAround(FirstSize());
    const HWND below = WindowBelow();
    const RECT work = WorkAreaOf(below ? below : handle);
    const LONG width = std::min(frame.right - frame.left, work.right - work.left);
    const LONG height = std::min(frame.bottom - frame.top, work.bottom - work.top);
    RECT around = work;
    if (below)
        GetWindowRect(below, &around);
    const LONG left = (around.left + around.right - width) / 2;
    const LONG top = (around.top + around.bottom - height) / 2;
    SetWindowPos(handle, nullptr, std::clamp(left, work.left, work.right - width),
                 std::clamp(top, work.top, work.bottom - height), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
}

// The window that the form opens over: its owner, or the form that it takes over from. Null when
// there is none to be seen.
HWND Form::WindowBelow() const {
    const Form* const last = application.lastActive;
    const HWND below = ownerHandle ? ownerHandle : last && last != this ? last->handle : nullptr;
    return below && IsWindowVisible(below) && !IsIconic(below) ? below : nullptr;
}

void Form::KeepSizeInBounds(MINMAXINFO& info) const {
    if (!measure || !layout)
        return;
    const RECT least = FrameAround(MinimumSize());
    const RECT work = WorkAreaOf(handle);
    info.ptMinTrackSize = {std::min(least.right - least.left, work.right - work.left),
                           std::min(least.bottom - least.top, work.bottom - work.top)};
}

} // namespace tamblin
