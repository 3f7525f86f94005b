#pragma once

#include "GalleryPage.h"

#include <memory>
#include <string>

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zelmar::ui {
class QtSignalConnectionCollection;
} // namespace zelmar::ui

namespace gallery {

/// A page on which each helper can be tried: override cursors during work, disconnecting, the main window, and fonts.
class HelpersPage : public GalleryPage
{
    Q_OBJECT

public:
    HelpersPage();
    ~HelpersPage() override;

private:
    void addCursors();
    void addConnections();
    void addMainWindow();
    void addFonts();
    QFormLayout* addGroup(const QString& title);
    void work();
    void setConnected(bool on);
    void showMainWindow();
    void offerFonts();
    void addFontsFrom(void (*add)(const std::string&));

    QPushButton* m_work;
    QLabel* m_cursors;
    QCheckBox* m_connected;
    QPushButton* m_sender;
    QLabel* m_heard;
    int m_heardTimes = 0;
    std::unique_ptr<zelmar::ui::QtSignalConnectionCollection> m_connections; ///< null if nothing is connected
    QCheckBox* m_refresh;
    QPushButton* m_find;
    QLabel* m_found;
    QLineEdit* m_path;
    QPushButton* m_addFile;
    QPushButton* m_addFolder;
    QLabel* m_families;
    QLabel* m_sample;
};

} // namespace gallery
