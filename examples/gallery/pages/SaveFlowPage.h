#pragma once

#include "GalleryPage.h"
#include "SampleWriter.h"

class QCheckBox;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;
class SaveFileQtDialog;

namespace gallery {

/// A page that runs the save flow with a table of writers, one of which is preselected, and writes a small sample file
/// with the writer that the user chooses.
class SaveFlowPage : public GalleryPage
{
    Q_OBJECT

public:
    SaveFlowPage();
    ~SaveFlowPage() override;

private:
    void addWidgets();
    void fillTable();
    void save();
    std::unique_ptr<SaveFileQtDialog> makeFlow() const;
    QString written(const SaveFileQtDialog& flow) const;

    const QVector<SampleWriter> m_writers;
    QTableWidget* m_table;
    QCheckBox* m_ownWording;
    QPushButton* m_button;
    QPlainTextEdit* m_result;
};

} // namespace gallery
