#pragma once

class QDialog;

namespace zelmar::internal {

/// Closes the dialogs that are open over `dialog` as the Escape key does. A question is thereby answered with No, and
/// the function that asked it returns.
void closeQuestions(QDialog& dialog);

/// Closes the questions over `dialog` and then rejects it. Its event loop can only end after the event loops of the
/// questions have ended.
void closeWithQuestions(QDialog& dialog);

/// Closes the message boxes that are open over `dialog` and removes them from its children. The destructor of a file
/// dialog calls this function, because QFileDialog creates its message boxes on the stack, and the parent would delete
/// them.
void releaseQuestions(QDialog& dialog);

} // namespace zelmar::internal
