#include "RecoveryBar.h"

#include <QHBoxLayout>
#include <QLabel>

#include "QuietButton.h"

using namespace Qt::StringLiterals;

RecoveryBar::RecoveryBar(QWidget* parent) : QFrame(parent), text_(new QLabel(this)) {
    setObjectName(u"recovery"_s);
    // Its own colours, the same in a dark palette: it has to be seen.
    setStyleSheet(
        u"#recovery { background: #fff4ce; border: 1px solid #d9b44a; border-radius: 4px }"
        "#recovery > QLabel { color: #3b2f00 }"_s);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(10, 5, 6, 5);
    all->addWidget(text_, 1);
    addQuietButton(*all, *this, u"goOn"_s, u"继续(&J)"_s, &RecoveryBar::goesOn);
    addQuietButton(*all, *this, u"giveUp"_s, u"放弃(&Q)"_s, &RecoveryBar::givesUp);
    hide();
}

void RecoveryBar::tell(const QString& text) {
    text_->setText(text);
    show();
}

QString RecoveryBar::text() const {
    return text_->text();
}
