#include "ManualWindow.h"

#include <QImage>
#include <QTextBrowser>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int PictureMargin = 40;

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
        if (image.width() > widest && widest > 0) image = image.scaledToWidth(widest, Qt::SmoothTransformation);
        return image;
    }
};
}  // namespace

ManualWindow::ManualWindow(QWidget* parent) : QDialog(parent) {
    setWindowTitle(u"录单员手册"_s);
    resize(900, 700);
    auto* page = new Page(this);
    page->setObjectName(u"page"_s);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(page);
    all->activate();  // the page has its width before it loads its pictures
    page->setSource(QUrl(u"qrc:/manual/clerk.zh.md"_s), QTextDocument::MarkdownResource);
}
