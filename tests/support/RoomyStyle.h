#pragma once

#include <QProxyStyle>

/// A style in which buttons are larger than in its base style.
class RoomyStyle : public QProxyStyle
{
public:
    RoomyStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        const QSize usual = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return type == CT_PushButton ? usual + QSize(40, 60) : usual;
    }
};
