// The draft of the order in a window: its lines follow the grid by themselves, its head is put beside them.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <optional>
#include <vector>

#include "Order.h"
#include "kxVsGrid/qt/DraftFile.h"

class OrderDraft : public QObject {
    Q_OBJECT

  public:
    /// The head as it stands in the fields.
    struct Head {
        Order proposed;  ///< of a new order: the number and the date that the window gave it
        Order fields;    ///< number, date and customer
        QString typed;   ///< for a customer that names none
    };
    /// One that was left behind.
    struct Kept {
        kxVsGrid::qt::DraftFile::Leftover file;
        qint64 order = 0;  ///< 0: one that was never saved
        int version = 0;
        Head head;
    };

    /// The drafts of a database's orders, the newest first; those that cannot be read too, whose ever they are.
    static std::vector<Kept> keptIn(const QString& folder, const QString& database);

    /// `database` tells the orders of one database from those of another.
    OrderDraft(kxVsGrid::qt::kxGridWidget& widget, const QString& folder, const QString& database);

    /// What the grid holds now is this order; a closed one has no draft.
    void begin(const Order& order, const Head& head);
    void put(const Head& head);
    kxVsGrid::qt::DraftFile::Recovery recover(const Kept& kept, bool document);
    std::optional<kxVsGrid::qt::DraftFile::EditorText> editorText() const { return file_.editorText(); }
    void finish() { file_.finish(); }

  signals:
    void failed(const QString& why);
    void works();

  private:
    kxVsGrid::qt::DraftFile file_;
    QString database_;
};
