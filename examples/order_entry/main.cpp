// 销售订单录入: order entry with the data-entry grid on an embedded database.
//
//     order_entry [--db FILE] [--seed-only] [--today YYYY-MM-DD | --now "YYYY-MM-DD HH:MM:SS"]
//                 [--settings FILE] [--drafts FOLDER] [--keys FILE] [--picture FILE] [--report FILE] [--dark]
#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <memory>

#include "ChineseTexts.h"
#include "KeyPlayer.h"
#include "OrderDesk.h"
#include "OrderReport.h"
#include "PrivateFiles.h"
#include "WindowPicture.h"

using namespace Qt::StringLiterals;

namespace {
struct Options {
    QString database;
    bool seedOnly = false;
    OrderWindow::Clock clock = [] { return QDateTime::currentDateTime(); };
    QString settings;
    QString drafts;
    QString keys;
    QString picture;
    QString report;
    bool dark = false;

    bool plays() const { return !keys.isEmpty() || !picture.isEmpty(); }
};

Options readOptions() {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"销售订单录入"_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"db"_s, u"数据库文件;不存在时建立;:memory: 只在内存中"_s, u"文件"_s},
        {u"seed-only"_s, u"只建立数据库,不显示窗口"_s},
        {u"today"_s, u"当作今天的日期"_s, u"yyyy-mm-dd"_s},
        {u"now"_s, u"当作现在的日期和时间,不再走动"_s, u"yyyy-mm-dd HH:mm:ss"_s},
        {u"settings"_s, u"保存列的布局的文件;播放脚本时没有它就不保存"_s, u"文件"_s},
        {u"drafts"_s, u"保存草稿的文件夹;播放脚本或者数据库在内存中时没有它就不保存"_s, u"文件夹"_s},
        {u"keys"_s, u"播放按键脚本,然后退出(格式见 KeyPlayer.h)"_s, u"文件"_s},
        {u"picture"_s, u"退出之前把窗口保存为 PNG 图片"_s, u"文件"_s},
        {u"report"_s, u"每一步之后把屏幕上的订单写到文件末尾"_s, u"文件"_s},
        {u"dark"_s, u"使用深色,不论桌面是什么颜色"_s},
    });
    parser.process(*QCoreApplication::instance());
    Options options;
    options.database = parser.value(u"db"_s);
    if (options.database.isEmpty())
        options.database =
            QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/orders.sqlite"_s;
    options.seedOnly = parser.isSet(u"seed-only"_s);
    const QDate today = QDate::fromString(parser.value(u"today"_s), Qt::ISODate);
    if (today.isValid()) options.clock = [today] { return QDateTime(today, QTime::currentTime()); };
    const QDateTime now = timeOf(parser.value(u"now"_s));
    if (now.isValid()) options.clock = [now] { return now; };
    options.settings = parser.value(u"settings"_s);
    options.keys = parser.value(u"keys"_s);
    options.picture = parser.value(u"picture"_s);
    options.report = parser.value(u"report"_s);
    options.drafts = parser.value(u"drafts"_s);
    if (options.drafts.isEmpty() && !options.plays() && options.database != u":memory:")
        options.drafts = kxVsGrid::qt::DraftFile::standardFolder();
    options.dark = parser.isSet(u"dark"_s);
    return options;
}

int complain(const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
    return 1;
}

int seed(const QString& file) {
    try {
        Database(file).open();
        return 0;
    } catch (const DatabaseError& error) {
        return complain(error.text());
    }
}

// A key script finds the same window at every user's.
std::unique_ptr<QSettings> userSettings(const Options& options) {
    if (options.settings.isEmpty() && options.plays()) return nullptr;
    auto settings = options.settings.isEmpty()
                        ? std::make_unique<QSettings>()
                        : std::make_unique<QSettings>(options.settings, QSettings::IniFormat);
    // Settings keep the rights of a file that is there. Where it cannot be made, keeping a width reports it.
    if (makePrivateFolder(QFileInfo(settings->fileName()).absolutePath()))
        makePrivateFile(settings->fileName());
    return settings;
}

// What a desktop in dark colours gives its programs.
QPalette darkPalette() {
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Highlight, QColor(38, 121, 191));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, QColor(220, 220, 220));
        palette.setColor(QPalette::Disabled, role, QColor(120, 120, 120));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
    return palette;
}

// Plays the keys, saves the picture and ends the program.
int playKeys(OrderDesk& desk, const Options& options, const std::function<void()>& start) {
    OrderWindow& window = desk.first();
    QStringList script;
    if (!options.keys.isEmpty()) {
        const std::optional<QStringList> lines = KeyPlayer::linesOf(options.keys);
        if (!lines) return complain(u"无法读取 "_s + options.keys);
        script = *lines;
    }
    QApplication::setCursorFlashTime(0);  // pictures do not depend on the moment
    KeyPlayer player(window, script);
    QObject::connect(&player, &KeyPlayer::finished, &window, [&](const QString& error) {
        int result = error.isEmpty() ? 0 : complain(options.keys + u":"_s + error);
        if (!options.picture.isEmpty() && !WindowPicture::save(window, options.picture, window.rect()))
            result = complain(u"无法写入图片 "_s + options.picture);
        QCoreApplication::exit(result);
    });
    // Inside the event loop, which the end of the script ends, also while a box of the window is open.
    QTimer::singleShot(0, &window, start);
    player.start();
    return QCoreApplication::exec();
}
}  // namespace

int main(int argc, char** argv) {
    // An input method that answers later than the next key is pressed is reset by the Enter before it: a
    // clerk who types ahead would lose the first letters of a word. With this, each key waits for its answer.
    if (!qEnvironmentVariableIsSet("IBUS_ENABLE_SYNC_MODE")) qputenv("IBUS_ENABLE_SYNC_MODE", "1");
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"order_entry"_s);
    QCoreApplication::setOrganizationName(u"kxVsGrid"_s);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    ChineseTexts ownTexts;
    QCoreApplication::installTranslator(&ownTexts);
    QTranslator qtTexts;
    if (qtTexts.load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTexts);

    const Options options = readOptions();
    if (options.seedOnly) return seed(options.database);
    if (options.dark) QApplication::setPalette(darkPalette());
    Questions questions;
    OrderDesk desk({options.database, options.clock, options.drafts, [&] { return userSettings(options); }},
                   questions);
    OrderReport report(options.report);
    if (!options.report.isEmpty() && !report.isOpen()) return complain(u"无法写入 "_s + options.report);
    const auto start = [&] {
        desk.start();
        if (!report.isOpen()) return;
        for (const auto& window : desk.windows()) report.follow(*window);
    };
    if (options.plays()) return playKeys(desk, options, start);
    start();
    return QCoreApplication::exec();
}
