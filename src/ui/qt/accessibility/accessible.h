#pragma once

#include <QAccessible>
#include <QLabel>
#include <QString>
#include <QWidget>

/// Accessible interfaces where those of Qt aren't enough: buttons that can be pressed, figures with name and value,
/// pages as text, roles of containers.

class QAbstractButton;

namespace tallyfin::qt {

/// A widget whose text is its accessible value; it has an accessible name too.
class Readable {
 public:
  Readable() = default;
  Readable(const Readable&) = delete;
  Readable& operator=(const Readable&) = delete;
  virtual ~Readable() = default;
  virtual QString readable() const = 0;
};

/// A widget that isn't a check box but has two states like one.
class Switch {
 public:
  Switch() = default;
  Switch(const Switch&) = delete;
  Switch& operator=(const Switch&) = delete;
  virtual ~Switch() = default;
  virtual bool on() const = 0;
  virtual void turn() = 0;
};

/// A part of a page that may be out of view. It is then not reported as showing, and neither are its children, except
/// the one with the keyboard focus.
class Turnable {
 public:
  Turnable() = default;
  Turnable(const Turnable&) = delete;
  Turnable& operator=(const Turnable&) = delete;
  virtual ~Turnable() = default;
  virtual bool inView() const = 0;
};

/// A checkable button that opens the items below it.
class Expander {
 public:
  Expander() = default;
  Expander(const Expander&) = delete;
  Expander& operator=(const Expander&) = delete;
  virtual ~Expander() = default;
};

/// A label that shows a figure.
class FigureLabel : public QLabel, public Readable {
 public:
  using QLabel::QLabel;
  QString readable() const override { return text(); }
};

/// The name of a button: its accessible name, or its caption without the mnemonic `&`.
QString nameOf(const QAbstractButton& button);

/// Installs the accessible interfaces for the widgets of the program; further calls change nothing.
void answerAssistiveTechnology();

/// Sets the role of a container. Call it before the widget gets a name, because Qt then reads the role and caches it.
void presentAs(QWidget& widget, QAccessible::Role role);

/// Notifies assistive technology of a changed text.
void tellReadable(const QWidget& widget, const QString& before, const QString& now);

/// Announces a text that isn't shown, such as the title of the new active page. One for each window.
class Announcer : public QWidget {
 public:
  explicit Announcer(QWidget* window);
  void say(const QString& words);
};

}  // namespace tallyfin::qt
