#include "ManualWindow.h"

#include <QImage>
#include <QScreen>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int PictureMargin = 40;
constexpr int TableMargin = 3;
constexpr int HeadingMargin = 16;
constexpr int PageWidth = 760;
constexpr int FrameOfDesktop = 60;  // above and below

/// Shows pictures no wider than the page.
class Page : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override {
        QVariant resource = QTextBrowser::loadResource(type, name);
        if (type != QTextDocument::ImageResource) return resource;
        QImage image = resource.userType() == QMetaType::QByteArray ? QImage::fromData(resource.toByteArray())
                                                                    : resource.value<QImage>();
        const int widest = viewport()->width() - PictureMargin;
        if (image.width() > widest && widest > 0)
            image = image.scaledToWidth(widest, Qt::SmoothTransformation);
        return image;
    }
};
/// Single lines around the cells of tables, and room above headings.
void space(QTextDocument& page) {
    for (QTextFrame* frame : page.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setCellSpacing(0);
        format.setCellPadding(TableMargin);
        table->setFormat(format);
    }
    QTextCursor cursor(&page);
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        QTextBlockFormat format = block.blockFormat();
        format.setTopMargin(HeadingMargin);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
}
}  // namespace

ManualWindow::ManualWindow(QWidget* parent) : QDialog(parent) {
    setWindowTitle(u"录单员手册"_s);
    // At the right of the screen: the codes and the quantities of the order can be seen beside it.
    const QRect screen = parent->screen()->availableGeometry();
    resize(QSize(PageWidth, screen.height()).boundedTo(screen.size() - QSize(0, FrameOfDesktop)));
    move(screen.right() + 1 - width(), screen.top());
    auto* page = new Page(this);
    page->setObjectName(u"page"_s);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(page);
    all->activate();  // the page has its width before it loads its pictures
    page->setSource(QUrl(u"qrc:/manual/clerk.zh.md"_s), QTextDocument::MarkdownResource);
    space(*page->document());
}
