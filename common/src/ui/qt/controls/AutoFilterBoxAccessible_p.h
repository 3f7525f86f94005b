#pragma once

namespace zelmar::internal {

/// Presents every ComboBoxAutoFilter of the program to assistive technology. Its name is the accessible name, or else
/// the text of its buddy label, and its value is the text of its field; Qt would name it by its value. The field has
/// the name of the box, unless the application has given it another one.
///
/// Only the first call has an effect. GUI thread only.
void makeAutoFilterBoxesAccessible();

} // namespace zelmar::internal
