#pragma once

class QFileDialog;

/// For a dialog drawn by Qt, before it is accepted with a name in its box: takes the folder that it shows out of the
/// selection. Qt selects it when the box is emptied, and under some orders of setting up keeps it selected behind the
/// name that is typed then; the name would be lost, and the dialog would stay open for the folder.
void unselectShownFolder(QFileDialog& dialog);
