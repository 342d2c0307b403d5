// What can be said of the picture without looking at it: colours, contrast, sizes.
#include <QScreen>

#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/view/Scale.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

/// The colour that most of a part of the picture has.
QRgb ground(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    QRgb best = 0;
    int most = 0;
    for (auto it = counts.begin(); it != counts.end(); ++it)
        if (it.value() > most) {
            most = it.value();
            best = it.key();
        }
    return best;
}

/// Contrast of the part's strongest pixel to its ground.
double inkContrast(const QImage& image) {
    const QRgb under = ground(image);
    double strongest = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max(strongest, contrast(image.pixel(x, y), under));
    return strongest;
}

/// The rectangle that holds all that is not ground.
QRect ink(const QImage& image) {
    const QRgb under = ground(image);
    QRect found;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (contrast(image.pixel(x, y), under) > 1.5) found |= QRect(x, y, 1, 1);
    return found;
}

/// A cell as painted, in device pixels.
QImage whole(Window& w, std::int32_t row, std::int32_t col) {
    const QRect cell = Scale(*w.widget).devicePixels(w.grid().Grid().CellRect(row, col));
    return w.widget->grab().toImage().copy(cell);
}

/// The inside of a cell as painted, without its lines.
QImage inside(Window& w, std::int32_t row, std::int32_t col) {
    return whole(w, row, col).copy(whole(w, row, col).rect().adjusted(3, 3, -3, -3));
}

QImage insideTotal(Window& w, std::int32_t col) {
    Rect rect = w.grid().Grid_Sum().CellRect(0, col);
    rect.left += w.grid().totalRowRect().left;
    rect.top += w.grid().totalRowRect().top;
    return w.widget->grab(Scale(*w.widget).pixels(rect).adjusted(3, 3, -3, -3)).toImage();
}
}  // namespace

TEST(SystemColors, ReadsHostColoursWithRedInTheLowByte) {
    const SystemColors colors{QPalette()};
    EXPECT_EQ(colors.rgb(0x0000FF), qRgb(255, 0, 0));
    EXPECT_EQ(colors.rgb(0xFF0000), qRgb(0, 0, 255));
    EXPECT_EQ(colors.rgb(0), qRgb(0, 0, 0));
}

TEST(SystemColors, FollowThePalette) {
    const SystemColors colors(darkPalette());
    EXPECT_EQ(colors.rgb(0x80000005), QColor(30, 30, 30).rgb());
    EXPECT_EQ(colors.rgb(0x80000008), QColor(220, 220, 220).rgb());
    EXPECT_NO_THROW(colors.rgb(0x800000FF));
}

TEST(SystemColors, MakeAPalettesTextLegibleOnAHostsGround) {
    const SystemColors dark(darkPalette());
    EXPECT_GT(contrast(dark.textOn(0x80000008, 0xE0E0E0), qRgb(0xE0, 0xE0, 0xE0)), 4.5);
    EXPECT_EQ(dark.textOn(0x0000FF, 0xFF0000), qRgb(255, 0, 0));
    EXPECT_GT(contrast(dark.textOn(0, 0x80000005), qRgb(30, 30, 30)), 4.5);
}

TEST(Look, IsLegibleInLightAndDarkLive) {
    Window w;
    for (const bool dark : {false, true, false}) {
        w.window.setPalette(dark ? darkPalette() : QApplication::palette());
        w.settle();
        for (const auto& part : {inside(w, 0, Code), inside(w, 1, Code), inside(w, 1, Name),
                                 inside(w, 1, Number), insideTotal(w, Code), insideTotal(w, Quantity)})
            EXPECT_GT(inkContrast(part), 4.0) << (dark ? "dark" : "light");
        EXPECT_EQ(ground(inside(w, 3, Code)), w.window.palette().color(QPalette::Base).rgb());
    }
}

TEST(Look, HasGridLinesOneDevicePixelWideInLightAndDark) {
    Window w;
    for (const bool dark : {false, true}) {
        w.window.setPalette(dark ? darkPalette() : QApplication::palette());
        w.settle();
        const QImage image = w.widget->grab().toImage();
        const QRgb base = w.window.palette().color(QPalette::Base).rgb();
        const QRect cell = Scale(*w.widget).devicePixels(w.grid().Grid().CellRect(5, Name));
        EXPECT_GT(contrast(image.pixel(cell.right(), cell.center().y()), base), 1.15);
        EXPECT_GT(contrast(image.pixel(cell.center().x(), cell.bottom()), base), 1.15);
        for (int x = cell.left(); x < cell.right(); ++x)
            EXPECT_EQ(image.pixel(x, cell.center().y()), base) << x;
        for (int y = cell.top(); y < cell.bottom(); ++y)
            EXPECT_EQ(image.pixel(cell.center().x(), y), base) << y;
    }
}

TEST(Look, HoldsALargeFontInItsRows) {
    Window w;
    EXPECT_EQ(w.grid().RowHeight(3), 300);
    QFont font = w.widget->font();
    font.setPointSizeF(17.3);
    w.widget->setFont(font);
    w.settle();
    EXPECT_GE(w.cell(1, Code).height(), QFontMetrics(font).height());
    EXPECT_GE(w.cell(0, Code).height(), QFontMetrics(font).height());
    EXPECT_GE(Scale(*w.widget).pixel(w.grid().Grid_Sum().RowHeight(0)), QFontMetrics(font).height());
    // nothing of the text touches the upper or the lower edge
    w.grid().Grid().Text(3, Name, "国Ågj");
    w.grid().ColWidth(Name, 3000);
    w.settle();
    w.picture("large-font");
    const QImage image = whole(w, 3, Name);
    const QRgb base = w.window.palette().color(QPalette::Base).rgb();
    const int edge = image.height() - 2;
    for (int x = 3; x < image.width() - 3; ++x) {
        EXPECT_EQ(image.pixel(x, 0), base);
        EXPECT_EQ(image.pixel(x, edge), base);
    }
}

TEST(Look, WidensCaptionsWithTheFont) {
    Window w;
    w.grid().FormatString("x|<一二三四五六");
    const std::int32_t narrow = w.grid().ColWidth(1);
    QFont font = w.widget->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    w.widget->setFont(font);
    w.grid().FormatString("x|<一二三四五六");
    EXPECT_GT(w.grid().ColWidth(1), narrow * 3 / 2);
    EXPECT_GE(w.cell(0, 1).width(), QFontMetrics(font).horizontalAdvance("一二三四五六"));
}

TEST(Look, KeepsColumnsAsWideAsTheirSamplesInAnotherFont) {
    Window w;
    w.grid().ColSample(Date, "2026-11-20");
    const std::int32_t dragged = w.grid().ColWidth(Name);
    w.grid().Grid().userColWidth(Name, dragged);
    QFont font = w.widget->font();
    font.setPointSizeF(font.pointSizeF() + 2);
    w.widget->setFont(font);
    w.settle();
    const double room = w.cell(1, Date).width() - 6;  // without its margins
    EXPECT_GE(room, QFontMetricsF(font).horizontalAdvance("2026-11-20"));
    EXPECT_LE(room, QFontMetricsF(font).horizontalAdvance("2026-11-20") + 2);
    EXPECT_GE(w.cell(0, Code).width(), QFontMetricsF(font).horizontalAdvance("货号          "));
    EXPECT_EQ(w.grid().ColWidth(Name), dragged);
    EXPECT_EQ(w.grid().Grid_Sum().ColWidth(Date), w.grid().ColWidth(Date));
}

TEST(Look, PaintsTheTotalsToFitADarkPaletteUnlessTheHostGaveTheirColour) {
    Window w;
    const QRgb grey = qRgb(0xE0, 0xE0, 0xE0);
    EXPECT_EQ(ground(insideTotal(w, Quantity)), grey);
    w.window.setPalette(darkPalette());
    w.settle();
    w.picture("dark-totals");
    EXPECT_LT(contrast(ground(insideTotal(w, Quantity)), darkPalette().color(QPalette::Base).rgb()), 2);
    EXPECT_NE(ground(insideTotal(w, Quantity)), darkPalette().color(QPalette::Base).rgb());
    EXPECT_GT(inkContrast(insideTotal(w, Quantity)), 4.5);
    w.grid().VsSumCellBackColor(0xE0E0E0);
    w.settle();
    EXPECT_EQ(ground(insideTotal(w, Quantity)), grey);
    EXPECT_GT(inkContrast(insideTotal(w, Quantity)), 4.5);
}

TEST(Look, RaisesFixedCellsByHairlinesInLightAndDark) {
    Window w;
    for (const bool dark : {false, true}) {
        w.window.setPalette(dark ? darkPalette() : QApplication::palette());
        w.grid().Appearance(1);
        w.settle();
        const QImage cell = whole(w, 0, Name);
        const QRgb face = ground(cell);
        const int middle = cell.height() / 2;
        EXPECT_EQ(cell.pixel(0, middle), lit(face));
        EXPECT_EQ(cell.pixel(1, middle), face);
        EXPECT_EQ(cell.pixel(cell.width() - 2, middle), dimmed(face));
        EXPECT_EQ(cell.pixel(cell.width() - 3, middle), face);
        EXPECT_EQ(cell.pixel(4, 0), lit(face));
        EXPECT_EQ(cell.pixel(4, cell.height() - 2), dimmed(face));
        EXPECT_GT(contrast(lit(face), face), 1.05);
        EXPECT_GT(contrast(dimmed(face), face), 1.05);
        w.grid().Appearance(0);
        w.settle();
        const QImage flat = whole(w, 0, Name);
        for (const int x : {0, 1, flat.width() - 3, flat.width() - 2})
            EXPECT_EQ(flat.pixel(x, middle), face) << x;
    }
}

TEST(Look, ShadesReadOnlyCellsInLightAndDark) {
    Window w;
    EXPECT_EQ(ground(inside(w, 5, Name)), ground(inside(w, 5, Code)));
    w.grid().Options().ReadOnlyShade(8);
    for (const bool dark : {false, true}) {
        w.window.setPalette(dark ? darkPalette() : QApplication::palette());
        w.settle();
        w.picture(dark ? "shaded-dark" : "shaded");
        const QRgb base = w.window.palette().color(QPalette::Base).rgb();
        EXPECT_EQ(ground(inside(w, 5, Code)), base);
        EXPECT_EQ(ground(inside(w, 5, Name)), shaded(base, 0.08));
        EXPECT_GT(contrast(ground(inside(w, 5, Name)), base), 1.1);
        EXPECT_GT(inkContrast(inside(w, 1, Name)), 4.5);
    }
}

TEST(Look, HasLinesOfOneWidthWhereverTheGridStandsInItsWindow) {
    Window w;
    const SystemColors colors(w.widget->palette());
    for (const int margin : {8, 9, 10, 11}) {
        w.window.layout()->setContentsMargins(margin, margin, margin, margin);
        w.window.layout()->activate();
        w.settle();
        const QImage image = w.window.grab().toImage();
        const double ratio = image.devicePixelRatio();
        const QPoint row = w.view().mapTo(&w.window, w.at(5, Name));
        const int y = static_cast<int>(row.y() * ratio);
        const QRgb line = colors.rgb(0x80000016);
        int lines = 0;
        for (int x = 1; x + 1 < image.width(); ++x) {
            if (image.pixel(x, y) != line) continue;
            ++lines;
            EXPECT_NE(image.pixel(x - 1, y), line) << margin;
            EXPECT_NE(image.pixel(x + 1, y), line) << margin;
        }
        EXPECT_GE(lines, 4) << margin;
        const int x = static_cast<int>(row.x() * ratio);
        const int totals =
            w.view().mapTo(&w.window, Scale(*w.widget).pixels(w.grid().totalRowRect()).topLeft()).y();
        int edges = 0;
        for (int at = static_cast<int>((totals - 4) * ratio); at < (totals + 4) * ratio; ++at)
            edges += image.pixel(x, at) == colors.rgb(0x80000010) ? 1 : 0;
        EXPECT_EQ(edges, 1) << margin;
    }
}

TEST(Look, PaintsATextAsWideAsQtWould) {
    Window w;
    const QString text = "WAVE 1,234.50 货号";
    w.grid().Grid().Text(4, Name, text.toStdString());
    w.grid().ColWidth(Name, 4000);
    w.settle();
    const QImage image = inside(w, 4, Name);
    const QRgb base = w.window.palette().color(QPalette::Base).rgb();
    int right = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != base) right = std::max(right, x);
    const double wide = right / w.widget->devicePixelRatioF();
    EXPECT_NEAR(wide, QFontMetricsF(w.widget->font()).horizontalAdvance(text), 6);
}

TEST(Look, ShowsTheSameTextAtTheSamePlaceInTheCellAndInTheEditor) {
    QWidget other;
    other.show();
    Window w;
    for (const auto& [col, text] :
         {std::pair{Code, "Ag001"}, std::pair{Quantity, "77"}, std::pair{Date, "中文"}}) {
        w.grid().VsCtrl(static_cast<std::int16_t>(col))->iType(flexDTString);
        w.grid().ColFormat(col, "");
        w.grid().Grid().Text(3, col, text);
        w.grid().Grid().Select(5, Code);
        QApplication::setActiveWindow(&w.window);
        w.settle();
        const QRect closed = ink(inside(w, 3, col));
        w.doubleClick(3, col);
        dynamic_cast<QLineEdit&>(w.editor()).deselect();
        QApplication::setActiveWindow(&other);  // no caret in the picture
        w.settle();
        const QRect open = ink(inside(w, 3, col));
        const double pixel = w.widget->devicePixelRatioF();
        EXPECT_NEAR(open.top(), closed.top(), pixel) << text;
        EXPECT_NEAR(open.left(), closed.left(), pixel) << text;
        EXPECT_NEAR(open.width(), closed.width(), pixel) << text;
        EXPECT_NEAR(open.height(), closed.height(), pixel) << text;
    }
}

TEST(Look, PaintsOnlyWhatIsDamaged) {
    class Watch : public QObject {
      public:
        QRegion painted;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
    } watch;
    Window w;
    w.settle();
    w.view().installEventFilter(&watch);
    w.grid().Grid().Text(3, Name, "新");
    w.grid().Grid().Text(3, Date, "旧");
    EXPECT_TRUE(watch.painted.isEmpty());
    w.settle();
    EXPECT_TRUE(watch.painted.contains(w.at(3, Name)));
    EXPECT_TRUE(watch.painted.contains(w.at(3, Date)));
    EXPECT_FALSE(watch.painted.contains(w.at(5, Name)));
    EXPECT_FALSE(watch.painted.contains(w.at(3, Quantity)));
    w.view().removeEventFilter(&watch);
}
}  // namespace kxVsGrid::qt::testing
