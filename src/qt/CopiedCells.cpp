#include "qt/CopiedCells.h"

#include "qt/text/Encoding.h"
#include "support/BlockForm.h"

namespace kxVsGrid::qt {
namespace {

const QString PlainText = QStringLiteral("text/plain");
const QString Html = QStringLiteral("text/html");

QString blockType() {
    return toQt(support::BlockMimeType);
}
}  // namespace

QStringList CopiedCells::formats() const {
    QStringList formats{PlainText, Html};
    if (!content_.block.empty()) formats << blockType();
    return formats;
}

bool CopiedCells::hasFormat(const QString& mimeType) const {
    return formats().contains(mimeType);
}

QVariant CopiedCells::retrieveData(const QString& mimeType, QMetaType) const {
    if (mimeType == PlainText) return toQt(content_.text);
    if (mimeType == Html) return toQt(htmlOf(content_));
    if (mimeType == blockType() && !content_.block.empty())
        return QByteArray(content_.block.data(), static_cast<qsizetype>(content_.block.size()));
    return {};
}

ClipboardContent contentOf(const QMimeData* data) {
    if (data == nullptr) return {};
    // our own is read as it is, without making Qt's texts of it first
    if (const auto* own = qobject_cast<const CopiedCells*>(data)) return own->content();
    ClipboardContent content;
    content.text = fromQt(data->text());
    content.block = data->data(blockType()).toStdString();
    return content;
}
}  // namespace kxVsGrid::qt
