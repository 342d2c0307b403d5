#include "PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

bool makePrivateFolder(const QString& folder) {
    const QFileInfo info(folder);
    if (info.isDir()) return true;
    const QString above = info.absolutePath();
    if (above == info.absoluteFilePath() || !makePrivateFolder(above)) return false;
    return QDir().mkdir(info.absoluteFilePath(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner) ||
           QFileInfo(folder).isDir();  // another program may have been faster
}

bool makePrivateFile(const QString& file) {
    QFile made(file);
    return QFileInfo::exists(file) ||
           made.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner);
}
