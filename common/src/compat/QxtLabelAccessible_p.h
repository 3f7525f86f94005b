#pragma once

namespace zelmar::internal {

/// Presents every QxtLabel of the program to assistive technology as a static text. Its name is the accessible name
/// that the application has set, or else the full text, also in a form row, where a buddy label names the row. Its
/// value is the full text, and so is the description of a named label without another one. Without this function Qt
/// presents the label as a frame without a name.
///
/// Only the first call has an effect. GUI thread only.
void makeQxtLabelsAccessible();

} // namespace zelmar::internal
