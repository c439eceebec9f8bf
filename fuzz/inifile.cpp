#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>
#include <map>

#include "ui/qt/store.h"

/// Starts the store on a file of any bytes. After a change the file holds the new value and every other one as before,
/// or a copy of what was damaged stands beside it.

using namespace tallyfin;

namespace {

/// A folder in memory, since every save flushes the disk.
QString folder() {
  static const QTemporaryDir made(qEnvironmentVariable("TMPDIR", "/dev/shm") + "/inifileXXXXXX");
  return made.path();
}

/// The other settings of a file as QSettings reads them, also those that are no setting of this program's.
std::map<QString, QStringList> othersIn(const QString& path) {
  std::map<QString, QStringList> others;
  const QSettings file(path, QSettings::IniFormat);
  for (const QString& name : file.allKeys()) {
    others[name] = name.isEmpty() ? QStringList() : file.value(name).toStringList();
  }
  others.erase("Settings/IncAmt");
  return others;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // QSettings remembers files that it has read: a new name each time.
  static unsigned count = 0;
  const QString name = QString::number(++count) + ".ini";
  const QString path = folder() + '/' + name;
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
  }
  const auto others = othersIn(path);
  qt::Store before(path);
  auto wanted = before.all();
  const std::string text = bytes.toStdString();
  before.write("Settings", "IncAmt", text);
  wanted["Settings"]["IncAmt"] = text;
  const qt::Store after(path);
  if (before.read("Settings", "IncAmt") != text || after.read("Settings", "IncAmt") != text) std::abort();
  // What didn't last stands in the copy.
  QFile copy(path + ".damaged");
  const bool damaged = copy.open(QFile::ReadOnly);
  if (damaged ? copy.readAll() != bytes : before.all() != wanted || after.all() != wanted) std::abort();
  if (!damaged && (!after.trouble().isEmpty() || othersIn(path) != others)) std::abort();

  for (const QString& left : QDir(folder()).entryList({name + '*'}, QDir::Files)) QFile::remove(folder() + '/' + left);
  return 0;
}
