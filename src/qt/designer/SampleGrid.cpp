#include "qt/designer/SampleGrid.h"

#include <QXmlStreamWriter>

#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::designer {
namespace {

enum Column : std::int16_t { Number, Code, Name, Quantity, Price, Amount, Date, Columns };

void describeColumns(kxGrid& grid) {
    const auto name = [&grid](Column col, const char* text) { return grid.VsCtrl(col)->sName(text); };
    name(Number, "行号");
    name(Code, "货号");
    name(Name, "品名");
    name(Quantity, "数量");
    name(Price, "单价");
    name(Amount, "金额");
    name(Date, "交货日期");
    grid.VsCtrl(Number)->bIsEditable(false);
    grid.VsCtrl(Code)->b是否提供帮助(true);
    for (const Column col : {Quantity, Price, Amount}) {
        grid.VsCtrl(col)->iType(flexDTDouble);
        grid.VsCtrl(col)->iColAlignment(flexAlignRightCenter);
    }
    for (const Column col : {Quantity, Amount}) grid.VsCtrl(col)->b是否合计数据(true);
    grid.VsCtrl(Date)->iType(flexDTDate);
    grid.VsCtrl(Date)->iColAlignment(flexAlignCenterCenter);
}

/// The settings of the sample as a form stores them.
MemoryBag sampleSettings() {
    kxGridWidget widget;
    kxGrid& grid = widget.grid();
    grid.Cols(Columns);
    grid.FormatString(
        "行号|<货号      |<品名              |>数量      |>单价      |>金额        |^交货日期    ");
    describeColumns(grid);
    grid.Rows(12);
    grid.SumRow(true);
    MemoryBag bag;
    grid.WriteProperties(bag);
    return bag;
}

/// Texts are byte strings: a plain string is set late, at every change of the language.
void writeProperty(QXmlStreamWriter& xml, const std::string& name, const Variant& value) {
    xml.writeStartElement(QStringLiteral("property"));
    xml.writeAttribute(QStringLiteral("name"), toQt(name));
    switch (value.type()) {
        case Variant::Type::Boolean:
            xml.writeTextElement(QStringLiteral("bool"),
                                 value.toBoolean() ? QStringLiteral("true") : QStringLiteral("false"));
            break;
        case Variant::Type::Text:
            xml.writeTextElement(QStringLiteral("cstring"), toQt(value.toText()));
            break;
        default:
            xml.writeTextElement(QStringLiteral("number"), QString::number(value.toInt32()));
    }
    xml.writeEndElement();
}

void writeGeometry(QXmlStreamWriter& xml, int width, int height) {
    xml.writeStartElement(QStringLiteral("property"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("geometry"));
    xml.writeStartElement(QStringLiteral("rect"));
    xml.writeTextElement(QStringLiteral("x"), QStringLiteral("0"));
    xml.writeTextElement(QStringLiteral("y"), QStringLiteral("0"));
    xml.writeTextElement(QStringLiteral("width"), QString::number(width));
    xml.writeTextElement(QStringLiteral("height"), QString::number(height));
    xml.writeEndElement();
    xml.writeEndElement();
}
}  // namespace

QString sampleGridXml(const QString& className) {
    QString text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.writeStartElement(QStringLiteral("ui"));
    xml.writeAttribute(QStringLiteral("language"), QStringLiteral("c++"));
    xml.writeAttribute(QStringLiteral("displayname"), QStringLiteral("kxGrid"));
    xml.writeStartElement(QStringLiteral("widget"));
    xml.writeAttribute(QStringLiteral("class"), className);
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("kxGrid"));
    writeGeometry(xml, 600, 260);
    const MemoryBag settings = sampleSettings();
    for (const MemoryBag::Entry& entry : settings.entries()) writeProperty(xml, entry.name, entry.value);
    xml.writeEndElement();
    xml.writeEndElement();
    return text.trimmed();
}
}  // namespace kxVsGrid::qt::designer
