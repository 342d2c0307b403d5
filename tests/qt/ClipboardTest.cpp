// Copying and pasting at the widget: what other programs are offered and what is taken from them, by the keys
// of a desktop.
#include <QClipboard>
#include <QMimeData>
#include <QTextDocument>
#include <memory>
#include <utility>

#include "qt/CopiedCells.h"
#include "qt/Window.h"
#include "support/BlockForm.h"

namespace kxVsGrid::qt::testing {
namespace {

const QString OwnForm = QString::fromLatin1(support::BlockMimeType.data(), support::BlockMimeType.size());

QClipboard& board() {
    return *QApplication::clipboard();
}

/// What another program puts there.
void offer(const std::vector<std::pair<QString, QByteArray>>& forms) {
    auto* data = new QMimeData;
    for (const auto& [type, bytes] : forms) data->setData(type, bytes);
    board().setMimeData(data);
}

/// What another program gets that asks for a form of it.
QByteArray offered(const QString& type) {
    return board().mimeData()->data(type);
}

/// The block of the codes and names of the first two rows.
void copyBlock(Window& w) {
    w.focusCell(1, Code);
    w.grid().Grid().SelectRange(1, Code, 2, Quantity);
    w.press(Qt::Key_C, Qt::ControlModifier);
}

QString selectedText(Window& w) {
    if (auto* line = qobject_cast<QLineEdit*>(&w.editor())) return line->selectedText();
    return qobject_cast<QPlainTextEdit*>(&w.editor())->textCursor().selectedText();
}
}  // namespace

// --- What is offered

TEST(Clipboard, OffersABlockAsTextAsTableAndInTheOwnForm) {
    Window w;
    copyBlock(w);
    const QMimeData* data = board().mimeData();
    EXPECT_EQ(data->formats(), (QStringList{"text/plain", "text/html", OwnForm}));
    for (const QString& format : data->formats()) EXPECT_TRUE(data->hasFormat(format)) << qPrintable(format);
    EXPECT_FALSE(data->hasFormat("image/png"));
    EXPECT_TRUE(data->data("image/png").isEmpty());
    EXPECT_TRUE(data->hasText());
    EXPECT_TRUE(data->hasHtml());
    EXPECT_FALSE(data->hasUrls());
    EXPECT_EQ(data->text(), "A001\t苹果汁\t1,234.50\nA002\t矿泉水\t12.00");
    EXPECT_EQ(offered("text/plain"), data->text().toUtf8());
    EXPECT_TRUE(data->html().contains("<td>A001</td>")) << qPrintable(data->html());
    EXPECT_TRUE(data->html().contains("苹果汁"));
    const QByteArray block = offered(OwnForm);
    const auto read = support::BlockReader::open({block.constData(), static_cast<std::size_t>(block.size())});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->rows(), 2);
    EXPECT_EQ(read->columns().size(), 3U);
}

TEST(Clipboard, OffersCaptionsWithoutTheOwnForm) {
    Window w;
    w.focusCell(1, Code);
    w.grid().Grid().SelectRange(1, Code, 2, Name);
    w.press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QMimeData* data = board().mimeData();
    EXPECT_EQ(data->formats(), (QStringList{"text/plain", "text/html"}));
    EXPECT_TRUE(data->data(OwnForm).isEmpty());
    EXPECT_EQ(data->text().section('\n', 0, 0), "货号\t品名");
    EXPECT_TRUE(data->html().contains("<th")) << qPrintable(data->html());
}

TEST(Clipboard, OffersMarkupInCellsAsTheTextThatItIs) {
    Window w;
    const QStringList hostile{"<script>alert(1)</script>", "</td></tr></table><h1>&amp;", "\"x\" onload='y'",
                              "<!-- " + Rare + " -->"};
    for (int i = 0; i < hostile.size(); ++i) w.grid().SetCell(5 + i, Code, hostile[i].toStdString(), "");
    w.focusCell(5, Code);
    w.grid().Grid().SelectRange(5, Code, 8, Code);
    w.press(Qt::Key_C, Qt::ControlModifier);
    const QString html = board().mimeData()->html();
    EXPECT_FALSE(html.contains("<script")) << qPrintable(html);
    EXPECT_FALSE(html.contains("<h1")) << qPrintable(html);
    EXPECT_FALSE(html.contains("<!-- " + Rare)) << qPrintable(html);
    QTextDocument document;
    document.setHtml(html);
    const QString text = document.toPlainText();
    for (const QString& cell : hostile) EXPECT_TRUE(text.contains(cell)) << qPrintable(text);
}

TEST(Clipboard, GivesACellToATextFieldAndToAnotherGridAlike) {
    Window w;
    w.focusCell(1, Quantity);
    w.press(Qt::Key_C, Qt::ControlModifier);
    w.before->setFocus();
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.before->text(), "1,234.50");
    Window other;
    other.focusCell(4, Quantity);
    other.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(other.text(4, Quantity), "1234.5");
}

// --- Keys

TEST(Clipboard, HasTheDesktopsOlderKeysOnAClosedCell) {
    Window w;
    w.focusCell(1, Code);
    w.press(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(board().text(), "A001");
    w.focusCell(3, Code);
    w.press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(w.text(3, Code), "A001");
    EXPECT_EQ(w.grid().Grid().Data(3, Code), "1");
    w.focusCell(2, Code);
    w.press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(board().text(), "A002");
    EXPECT_EQ(w.text(2, Code), "");
    EXPECT_EQ(w.grid().Rows(), 30);
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "A002");
    w.press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(w.grid().Grid().SelectedAs(), SelectionKind::All);
    EXPECT_FALSE(w.editorShown());
}

TEST(Clipboard, LeavesItsKeysToTheTextOfAnOpenEditor) {
    for (const Column col : {Code, Remark}) {
        SCOPED_TRACE(col);
        Window w;
        w.grid().SetCell(3, Code, "below", "");
        w.focusCell(2, col);
        w.type("abc");
        ASSERT_TRUE(w.editorShown());
        w.press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(selectedText(w), "abc");
        EXPECT_TRUE(w.grid().Grid().SelectsOneCell());
        w.press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(board().text(), "abc");
        EXPECT_FALSE(board().mimeData()->hasFormat(OwnForm));
        board().setText("other");
        w.press(Qt::Key_Insert, Qt::ControlModifier);
        EXPECT_EQ(board().text(), "abc");
        w.press(Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(w.editorText(), "");
        w.press(Qt::Key_V, Qt::ControlModifier);
        w.press(Qt::Key_Insert, Qt::ShiftModifier);
        EXPECT_EQ(w.editorText(), "abcabc");
        w.press(Qt::Key_A, Qt::ControlModifier);
        w.press(Qt::Key_Delete, Qt::ShiftModifier);
        EXPECT_EQ(w.editorText(), "");
        EXPECT_EQ(board().text(), "abcabc");
        ASSERT_TRUE(w.editorShown());
        EXPECT_EQ(w.text(2, Code), "A002");
        EXPECT_EQ(w.text(3, Code), "below");
    }
}

/// What comes back from an open editor is what was typed there, and not the cell.
TEST(Clipboard, PastesACopiedPartOfATextAsText) {
    Window w;
    w.doubleClick(1, Code);
    ASSERT_TRUE(w.editorShown());
    w.press(Qt::Key_End);
    w.press(Qt::Key_Left, Qt::ShiftModifier);
    w.press(Qt::Key_C, Qt::ControlModifier);
    w.press(Qt::Key_Escape);
    w.focusCell(4, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(4, Code), "1");
    EXPECT_EQ(w.grid().Grid().Data(4, Code), "");
}

/// Whatever stands in it, also in another grid.
TEST(Clipboard, PastesACopiedCellIntoOneCell) {
    for (const char* text : {"one\ntwo", "a\tb", "\"quoted\"", "\"a\tb\"\nc"}) {
        SCOPED_TRACE(text);
        Window w;
        Window other;
        w.grid().SetCell(1, Remark, text, "");
        QApplication::setActiveWindow(&w.window);
        w.focusCell(1, Remark);
        w.press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(board().text(), text);
        EXPECT_EQ(board().mimeData()->html().count("<td"), 1);
        for (Window* into : {&w, &other}) {
            QApplication::setActiveWindow(&into->window);
            into->grid().SetCell(5, Remark, "stays", "");
            into->focusCell(4, Remark);
            into->press(Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(into->text(4, Remark), text);
            EXPECT_EQ(into->text(5, Remark), "stays");
        }
    }
}

// --- What others offer

TEST(Clipboard, TakesTheTextOfAForeignTable) {
    Window w;
    offer({{"text/html", "<table><tr><td>no</td></tr></table>"},
           {"text/plain", "x1\t\t7\r\nx2\t\t1,234.50\r\n"}});
    w.focusCell(4, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(4, Code), "x1");
    EXPECT_EQ(w.text(5, Code), "x2");
    EXPECT_EQ(w.text(4, Quantity), "7");
    EXPECT_EQ(w.text(5, Quantity), "1234.5");
    EXPECT_EQ(w.text(6, Code), "");
}

TEST(Clipboard, PastesNothingWhereThereIsNoText) {
    Window w;
    int reports = 0;
    w.grid().Commands().Reported.connect([&](const PasteReport&) { ++reports; });
    w.focusCell(1, Code);
    const auto paste = [&] {
        w.press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_FALSE(w.grid().Run(Command::Paste));
        EXPECT_EQ(w.text(1, Code), "A001");
        EXPECT_FALSE(w.editorShown());
        EXPECT_FALSE(w.grid().CanRun(Command::Undo));
    };
    offer({{"text/html", "<table><tr><td>a</td></tr></table>"}});
    paste();
    offer({{"text/plain", ""}});
    paste();
    offer({{"image/png", "\x89PNG"}});
    paste();
    offer({});
    paste();
    board().clear();
    paste();
    EXPECT_EQ(reports, 0);
}

TEST(Clipboard, TakesAnOwnFormThatItCannotReadForText) {
    Window w;
    offer({{OwnForm, "kxVsGrid block 1\nnonsense"}, {"text/plain", "a\tb"}});
    w.focusCell(4, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(4, Code), "a");
    offer({{OwnForm, QByteArray(5'000'000, '9')}, {"text/plain", "c"}});
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(4, Code), "c");
}

/// A clipboard may be empty, and a desktop may have none.
TEST(Clipboard, IsEmptyWhereThereIsNoData) {
    EXPECT_TRUE(contentOf(nullptr).text.empty());
    EXPECT_TRUE(contentOf(nullptr).block.empty());
    const QMimeData nothing;
    EXPECT_TRUE(contentOf(&nothing).text.empty());
    const CopiedCells none({});
    EXPECT_TRUE(contentOf(&none).text.empty());
    EXPECT_TRUE(none.data(OwnForm).isEmpty());
}

TEST(Clipboard, TakesCopiedCellsThatAnotherProgramHasTakenOver) {
    Window w;
    copyBlock(w);
    // as a clipboard manager keeps it when the program that copied has ended
    offer({{"text/plain", offered("text/plain")},
           {"text/html", offered("text/html")},
           {OwnForm, offered(OwnForm)}});
    w.focusCell(4, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(4, Code), "A001");
    EXPECT_EQ(w.grid().Grid().Data(4, Code), "1");
    EXPECT_EQ(w.grid().Grid().Data(5, Code), "2");
}

TEST(Clipboard, CarriesHugeTexts) {
    Window w;
    const QString huge = QString(5'000'000, u'h');
    board().setText(huge);
    w.focusCell(4, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(4, Code).size(), 5'000'000U);
    w.settle();
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(board().text(), huge);
    w.focusCell(5, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(5, Code).size(), 5'000'000U);
    EXPECT_GT(board().mimeData()->html().size(), 5'000'000);
}

TEST(Clipboard, TakesNoMoreOfAHugeTableThanThereIsRoomFor) {
    Window w;
    PasteReport report;
    w.grid().Commands().Reported.connect([&](const PasteReport& told) { report = told; });
    QString table;
    for (int row = 0; row < 250'000; ++row) table += "abcdefgh\tijklmnopq\n";
    ASSERT_GT(table.size(), 4'500'000);
    board().setText(table);
    w.focusCell(1, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(report.written, 29);
    EXPECT_EQ(report.passedOver, 29);
    EXPECT_EQ(report.refused, 2 * (250'000 - 29));
    EXPECT_EQ(w.text(29, Code), "abcdefgh");
}

// --- Listeners of the clipboard

TEST(Clipboard, MayEndTheWidgetWhenItChanges) {
    for (const auto& [key, text] : {std::pair{Qt::Key_C, "A001"}, std::pair{Qt::Key_X, "A001"}}) {
        SCOPED_TRACE(key);
        auto w = std::make_unique<Window>();
        w->focusCell(1, Code);
        QObject listener;
        QObject::connect(&board(), &QClipboard::dataChanged, &listener,
                         [&] { delete std::exchange(w->widget, nullptr); });
        w->press(key, Qt::ControlModifier);
        EXPECT_EQ(w->widget, nullptr);
        EXPECT_EQ(board().text(), text);
    }
}

TEST(Clipboard, OutlivesTheWidgetThatCopied) {
    {
        Window w;
        copyBlock(w);
    }
    EXPECT_EQ(board().text(), "A001\t苹果汁\t1,234.50\nA002\t矿泉水\t12.00");
    EXPECT_TRUE(board().mimeData()->html().contains("<td>A001</td>"));
    EXPECT_FALSE(offered(OwnForm).isEmpty());
}

/// A listener that pastes back at once what is just being copied.
TEST(Clipboard, MayBePastedFromWhileItChanges) {
    Window w;
    w.focusCell(1, Code);
    QObject listener;
    QObject::connect(&board(), &QClipboard::dataChanged, &listener, [&] {
        w.grid().Grid().Select(6, Code);
        w.grid().Run(Command::Paste);
    });
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(w.text(6, Code), "A001");
    EXPECT_EQ(w.text(1, Code), "A001");
}
}  // namespace kxVsGrid::qt::testing
