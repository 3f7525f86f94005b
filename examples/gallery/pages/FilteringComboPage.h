#pragma once

#include "GalleryPage.h"

class QComboBox;
class QLabel;
class QPushButton;
class QStackedLayout;
class QStringListModel;
class QTableView;

namespace zelmar::ui {
class ComboBoxAutoFilter;
} // namespace zelmar::ui

namespace gallery {

class NameDelegate;

/// A page with the filtering combo box for lists of up to a million names in its two uses: as the editor of a value in
/// a form and as the editor of table cells.
class FilteringComboPage : public GalleryPage
{
    Q_OBJECT

public:
    FilteringComboPage();
    ~FilteringComboPage() override;

private Q_SLOTS:
    void takeName();
    void keepName();

private:
    void addForm();
    void addTable();
    void addRefusal(const NameDelegate& delegate);
    void setNames(int count);
    void edit();
    void showValue(const QString& end);

    QStringListModel* m_names;
    QComboBox* m_counts;
    QLabel* m_label;
    QStackedLayout* m_field; ///< shows the value, or the combo box during editing
    QPushButton* m_value;
    QLabel* m_end;
    zelmar::ui::ComboBoxAutoFilter* m_box = nullptr; ///< null unless the value is being edited
    QTableView* m_table;
};

} // namespace gallery
