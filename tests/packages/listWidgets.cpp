// Creates the custom widgets of forms with what is installed, and prints their names: listWidgets FORM...
#include <QApplication>
#include <QFile>
#include <QStringList>
#include <QUiLoader>
#include <QWidget>
#include <QXmlStreamReader>

#include <cstdio>
#include <memory>

namespace {

QStringList customWidgets(const QString& form)
{
    QStringList names;
    QFile file(form);
    if (!file.open(QIODevice::ReadOnly))
        return names;
    QXmlStreamReader reader(&file);
    bool inCustomWidget = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.name() == QLatin1String("customwidget"))
            inCustomWidget = reader.isStartElement();
        else if (inCustomWidget && reader.isStartElement() && reader.name() == QLatin1String("class"))
            names << reader.readElementText();
    }
    return names;
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QUiLoader loader;
    int found = 0;
    const QStringList forms = QApplication::arguments().mid(1);
    for (const QString& form : forms) {
        const QStringList names = customWidgets(form);
        for (const QString& name : names) {
            const std::unique_ptr<QWidget> widget(loader.createWidget(name));
            if (!widget || !loader.availableWidgets().contains(name)) {
                std::printf("not found: %s of %s\n", qPrintable(name), qPrintable(form));
                return 1;
            }
            std::printf("%s\n", qPrintable(name));
            ++found;
        }
    }
    return found > 0 ? 0 : 1;
}
