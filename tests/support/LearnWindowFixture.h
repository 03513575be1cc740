// A window of the menu Learn by itself, with a truss to show.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <memory>
#include <type_traits>
#include <utility>

#include "explanation/LearnWindow.h"
#include "support/FakeAnimationWish.h"

template <class Window>
class LearnWindowFixture : public testing::Test {
 protected:
  /// `size` is the window's unless Show is given another.
  explicit LearnWindowFixture(QSize size) : usualSize_(size) {}

  /// Solves the truss and opens the window with it; `points` is the size of letters in reports.
  void Show(Truss given, float points = 10, QSize size = {}) {
    truss_ = std::make_shared<Truss>(std::move(given));
    analysis_ = std::make_shared<const TrussAnalysis>(SolveTruss(*truss_));
    window_.ShowSubject({.Document = truss_,
                         .Reasons = std::make_shared<ExplanationOnDemand>(*truss_, *analysis_),
                         .Format = {},
                         .Points = points});
    window_.resize(size.isEmpty() ? usualSize_ : size);
    window_.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  FakeAnimationWish wish_;
  std::shared_ptr<Truss> truss_;
  std::shared_ptr<const TrussAnalysis> analysis_;
  Window window_ = Made(wish_);

 private:
  static Window Made(const AnimationWish& wish) {
    if constexpr (std::is_constructible_v<Window, const AnimationWish&>) {
      return Window(wish);
    } else {
      return Window();
    }
  }

  QSize usualSize_;
};
