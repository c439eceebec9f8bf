#pragma once

#include <QAccessible>
#include <QLabel>
#include <QString>
#include <QWidget>

/// What assistive technology is told of the desktop where the toolkit's own answers would not do: buttons that it
/// presses, figures with name and value, pages as text, roles of what only holds others.

class QAbstractButton;

namespace tallyfin::qt {

/// A widget whose text is read as a value: its accessible name says what it is.
class Readable {
 public:
  Readable() = default;
  Readable(const Readable&) = delete;
  Readable& operator=(const Readable&) = delete;
  virtual ~Readable() = default;
  virtual QString readable() const = 0;
};

/// A widget that is switched on and off like a check box, and isn't one.
class Switch {
 public:
  Switch() = default;
  Switch(const Switch&) = delete;
  Switch& operator=(const Switch&) = delete;
  virtual ~Switch() = default;
  virtual bool on() const = 0;
  virtual void turn() = 0;
};

/// A part of a page that may be out of view. Assistive technology isn't told then that it is showing, nor of what is on
/// it, unless that has the keyboard.
class Turnable {
 public:
  Turnable() = default;
  Turnable(const Turnable&) = delete;
  Turnable& operator=(const Turnable&) = delete;
  virtual ~Turnable() = default;
  virtual bool inView() const = 0;
};

/// A checkable button that opens what stands below it.
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

/// What a button is called: its accessible name or its caption without the mark for the keyboard.
QString nameOf(const QAbstractButton& button);

/// Installs the answers for the widgets of the program; further calls change nothing.
void answerAssistiveTechnology();

/// Gives a widget that only holds others its role. Before it gets a name: the toolkit asks then and keeps the answer.
void presentAs(QWidget& widget, QAccessible::Role role);

/// Tells that a readable text has changed.
void tellReadable(const QWidget& widget, const QString& before, const QString& now);

/// Says something aloud that stands nowhere, such as what has come to the front. One for a window.
class Announcer : public QWidget {
 public:
  explicit Announcer(QWidget* window);
  void say(const QString& words);
};

}  // namespace tallyfin::qt
