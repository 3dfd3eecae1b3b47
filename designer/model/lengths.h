// Lengths between the clerk's millimetres and the tables' twips.
#pragma once

namespace td::designer {

inline constexpr double kTwipsPerMillimetre = 1440 / 25.4;

[[nodiscard]] constexpr double TwipsOf(double millimetres) {
  return millimetres * kTwipsPerMillimetre;
}
[[nodiscard]] constexpr double MillimetresOf(double twips) {
  return twips / kTwipsPerMillimetre;
}

// A length as a designer stores it: to 0.01 twip, which is 0.0002 mm.
[[nodiscard]] double StoredTwips(double twips);

// A point and a rectangle on a sheet, twips from its top left corner.
struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Box {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool operator==(const Box&) const = default;

  [[nodiscard]] double Right() const { return left + width; }
  [[nodiscard]] double Bottom() const { return top + height; }
  [[nodiscard]] double CentreX() const { return left + width / 2; }
  [[nodiscard]] double CentreY() const { return top + height / 2; }
  [[nodiscard]] bool Holds(Point point) const {
    return point.x >= left && point.x <= Right() && point.y >= top && point.y <= Bottom();
  }
  [[nodiscard]] bool Meets(const Box& other) const {
    return left <= other.Right() && other.left <= Right() && top <= other.Bottom() &&
           other.top <= Bottom();
  }
  [[nodiscard]] Box MovedBy(double dx, double dy) const {
    return {left + dx, top + dy, width, height};
  }
  [[nodiscard]] Box GrownBy(double margin) const {
    return {left - margin, top - margin, width + 2 * margin, height + 2 * margin};
  }
};

// The smallest box around both.
[[nodiscard]] Box Around(const Box& one, const Box& other);

}  // namespace td::designer
