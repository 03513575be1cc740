// Swings something to and fro, as a pendulum does.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class MotionPlayer final : public QObject {
  Q_OBJECT

 public:
  /// Milliseconds: of one swing there and back, and from frame to frame.
  static constexpr int Period = 3000;
  static constexpr int FrameTime = 33;

  explicit MotionPlayer(QObject* parent);

  /// From this swing (-1 .. 1) on.
  void Start(double swing);
  void Stop();
  bool IsPlaying() const { return timer_.isActive(); }

 Q_SIGNALS:
  void Swung(double swing);

 private:
  void ShowFrame();

  QTimer timer_;
  QElapsedTimer clock_;
  double phase_ = 0;  // at the start, radians
};
