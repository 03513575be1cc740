// The time that has passed decides where the swing is, so that a slow machine leaves out frames and keeps the
// pace.
#include "explanation/MotionPlayer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

MotionPlayer::MotionPlayer(QObject* parent) : QObject(parent) {
  timer_.setInterval(FrameTime);
  connect(&timer_, &QTimer::timeout, this, &MotionPlayer::ShowFrame);
}

void MotionPlayer::Start(double swing) {
  phase_ = std::asin(std::clamp(swing, -1.0, 1.0));
  clock_.start();
  timer_.start();
}

void MotionPlayer::Stop() { timer_.stop(); }

void MotionPlayer::ShowFrame() {
  const double turns = static_cast<double>(clock_.elapsed()) / Period;
  Q_EMIT Swung(std::sin(phase_ + 2 * std::numbers::pi * turns));
}
