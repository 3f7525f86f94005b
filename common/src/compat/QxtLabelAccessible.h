#pragma once

/// Lets assistive technology know every QxtLabel of the program as a static text whose name is its whole text, or the
/// accessible name that the application has set. Qt takes a class that it does not know for a nameless frame.
///
/// Does something at the first call only. GUI thread only.
void makeQxtLabelsAccessible();
