#pragma once

#include "GalleryPage.h"

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QStringListModel;
class QTableView;

namespace zelmar::ui {
class ComboBoxAutoFilter;
} // namespace zelmar::ui

namespace gallery {

/// The filtering combo box in its two roles, over lists of up to a million names: in the place of a value in a form,
/// and as the editor of a table's cells.
class FilteringComboPage : public GalleryPage
{
    Q_OBJECT

public:
    FilteringComboPage();
    ~FilteringComboPage() override;

    void tour(Tour& tour) override;

private Q_SLOTS:
    void takeName();
    void keepName();

private:
    void addForm();
    void addTable();
    void setNames(int count);
    void edit();
    void showValue(const QString& end);
    void tourForm(Tour& tour);
    void tourTable(Tour& tour);

    QStringListModel* m_names;
    QComboBox* m_counts;
    QStackedWidget* m_field; ///< the value, or the box while it is changed
    QPushButton* m_value;
    QLabel* m_end;
    zelmar::ui::ComboBoxAutoFilter* m_box = nullptr; ///< null when nothing is changed
    QTableView* m_table;
};

} // namespace gallery
