#pragma once

#include "GalleryPage.h"

#include <memory>

class QAbstractItemModel;
class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace gallery {

class TableView;

/// A page with a table, either one in which some cells cannot be copied or one of a million numbers, and the copied
/// text.
class TableCopyPage : public GalleryPage
{
    Q_OBJECT

public:
    TableCopyPage();
    ~TableCopyPage() override;

private:
    void addWidgets();
    void connectWidgets();
    void showMillion(bool on);
    void hideColumnB(bool on);
    void showCopiedText();

    std::unique_ptr<QAbstractItemModel> m_fewCells;
    std::unique_ptr<QAbstractItemModel> m_millionCells;
    TableView* m_view;
    QPushButton* m_selectButton;
    QPushButton* m_copyButton;
    QCheckBox* m_million;
    QCheckBox* m_hidden;
    QLabel* m_size;
    QPlainTextEdit* m_text;
};

} // namespace gallery
