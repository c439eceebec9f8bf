#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>

#include "ui/qt/store.h"

/// Starts the store on a file of any bytes. After a change the file holds the new value
/// and every other one as before, or a copy of what was damaged stands beside it.

using namespace tallyfin;

namespace {

/// A folder in memory, since every save flushes the disk.
QString folder() {
  static const QTemporaryDir made(qEnvironmentVariable("TMPDIR", "/dev/shm") + "/inifileXXXXXX");
  return made.path();
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
  if (!damaged && !after.trouble().isEmpty()) std::abort();

  for (const QString& left : QDir(folder()).entryList({name + '*'}, QDir::Files)) QFile::remove(folder() + '/' + left);
  return 0;
}
