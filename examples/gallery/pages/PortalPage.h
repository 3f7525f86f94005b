#pragma once

#include "GalleryPage.h"

#include "property/Property.h"

class QComboBox;
class QPlainTextEdit;

namespace gallery {

/// A page with a native file dialog whose controls a desktop portal can show: a check box, and a choice in place of the
/// menu on the accept button. Shows what the user has chosen.
class PortalPage : public GalleryPage
{
    Q_OBJECT

public:
    PortalPage();
    ~PortalPage() override;

private:
    void addWidgets();
    void open();
    void save();

    const boost::shared_ptr<zelmar::Property<bool>> m_headers;
    QComboBox* m_use;
    QPlainTextEdit* m_result;
};

} // namespace gallery
