// Copied cells as the clipboard of Qt holds them.
#pragma once

#include <QMimeData>

#include "kxVsGrid/Clipboard.h"

namespace kxVsGrid::qt {

/// Offers them as text, as an HTML table and in the control's own form. What another program asks for is made
/// when it asks: most ask for one.
class CopiedCells : public QMimeData {
    Q_OBJECT

  public:
    explicit CopiedCells(ClipboardContent content) : content_(std::move(content)) {}

    const ClipboardContent& content() const { return content_; }
    bool hasFormat(const QString& mimeType) const override;
    QStringList formats() const override;

  protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

  private:
    ClipboardContent content_;
};

/// What a clipboard holds; nothing is null.
ClipboardContent contentOf(const QMimeData* data);
}  // namespace kxVsGrid::qt
