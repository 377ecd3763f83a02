// What holds for every form of the program, at every density: no caption is cut off, nothing
// overlaps or sticks out, every control has a name for screen readers and its own ID, and the
// keyboard reaches all that can be used. Each returns what is wrong, line by line.
#pragma once

#include <span>
#include <string>

#include "ui/control_id.h"
#include "ui/form.h"

namespace tamblin {

inline constexpr unsigned Densities[] = {96, 120, 144, 192};

// A control as it must stand in a form.
struct Element {
    ControlKind kind;
    int number;
    const wchar_t* windowClass;
    const wchar_t* caption; // null when the user's data or a picture stand there
    int index = 0;
};

// The elements that are missing, of another kind or with another caption, and controls beyond them.
std::string WrongElements(const Form& form, std::span<const Element> elements);

// As when the form is dragged to a monitor of another density.
void MoveToDensity(Form& form, unsigned dpi);
// Makes the form as small as the user can.
void ShrinkToMinimum(Form& form);

std::string CutOffCaptions(const Form& form);
std::string MisplacedControls(const Form& form);
std::string NamelessControls(const Form& form);
std::string WrongIds(const Form& form);
// Access keys that two controls share or that the text does not have, and buttons with a Latin
// letter in their caption that have none.
std::string WrongAccessKeys(const Form& form);
// The controls that the keyboard does not come to, although they can be used.
std::string UnreachableControls(const Form& form);

// All of the above, at every density, at the first and at the least size.
std::string FaultsOf(Form& form);

} // namespace tamblin
