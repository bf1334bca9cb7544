#include "gui/creation_window.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

/// From here on, in pixels from either end of the scrolled area, rows may be deleted there.
constexpr int kKeptPixels = 1000;
/// At the end of the scroll bar at least so many rows more are created.
constexpr int kRowsAtEnd = 20;
constexpr double kFeedback = 10.0;

}  // namespace

ScrollStep scrollStep(int value, int maximum, int lastPercent, int windowSize, double netCreated) {
    const double percent = maximum > 0 ? static_cast<double>(value) / maximum * 100.0 : 0.0;
    const double delta = lastPercent - percent;
    const int step = static_cast<int>(std::abs(delta) / 100.0 * windowSize);
    ScrollStep result;
    result.isMove = delta != 0;
    result.direction = delta > 0 ? Direction::Up : Direction::Down;
    result.create = std::max(0, static_cast<int>(std::ceil(-netCreated / kFeedback) + step));
    const bool isDown = result.direction == Direction::Down;
    const bool isFarFromOther = isDown ? value > kKeptPixels : value < maximum - kKeptPixels;
    result.destroy = isFarFromOther ? step : 0;
    const bool isAtEnd = isDown ? value >= maximum : value <= 0;
    if (isAtEnd) {
        result.create = std::max(result.create, kRowsAtEnd);
        if (isFarFromOther)
            result.destroy = std::max(result.destroy, kRowsAtEnd);
    }
    return result;
}

CreationWindow::Place CreationWindow::firstPlace() const {
    const int set = std::max(firstCreatedSet, 0);
    return {set, set < sets_.setCount() ? sets_.cursorsOf(set).first : 0};
}

CreationWindow::Place CreationWindow::lastPlace() const {
    return {lastCreatedSet,
            lastCreatedSet < sets_.setCount() ? sets_.cursorsOf(lastCreatedSet).last : 0};
}

bool CreationWindow::isInside(Place place) const {
    return place.set >= 0 && place.set < sets_.setCount() && place.property >= 0 &&
           place.property < sets_.propertyCount(place.set);
}

/// The next property in that direction; none is inside when there is none.
CreationWindow::Place CreationWindow::next(Place place, Direction direction) const {
    const int step = direction == Direction::Down ? 1 : -1;
    place.property += step;
    while (place.set >= 0 && place.set < sets_.setCount() && !isInside(place)) {
        place.set += step;
        const bool isSet = place.set >= 0 && place.set < sets_.setCount();
        place.property = step > 0 || !isSet ? 0 : sets_.propertyCount(place.set) - 1;
    }
    return place;
}

int CreationWindow::extend(CreatableRows& rows, Direction direction, int limit) {
    const int count = rows.rowCount();
    if (rows.firstCreated == rows.endCreated)  // nothing there: begin at the end that comes first
        rows.firstCreated = rows.endCreated = direction == Direction::Down ? 0 : count;
    int created = 0;
    if (direction == Direction::Down) {
        for (; created < limit && rows.endCreated < count; ++created)
            rows.createRow(rows.endCreated++);
    } else {
        for (; created < limit && rows.firstCreated > 0; ++created)
            rows.createRow(--rows.firstCreated);
    }
    return created;
}

int CreationWindow::create(Direction direction, int limit) {
    int created = 0;
    Place place = direction == Direction::Down ? lastPlace() : firstPlace();
    if (!isInside(place))  // its set was collapsed
        place = next(place, direction);
    for (; created < limit && isInside(place); place = next(place, direction)) {
        CreatableRows& rows = sets_.rowsOf(place.set, place.property);
        created += extend(rows, direction, limit - created);
    }
    update();
    return created;
}

int CreationWindow::destroy(Direction direction, int limit, const MayDestroy& mayDestroy) {
    int destroyed = 0;
    const bool isDown = direction == Direction::Down;
    const Place end = isDown ? lastPlace() : firstPlace();
    bool isKept = false;
    for (Place place = isDown ? firstPlace() : lastPlace(); isInside(place) && !isKept;
         place = next(place, direction)) {
        CreatableRows& rows = sets_.rowsOf(place.set, place.property);
        const int before = destroyed;
        while (destroyed < limit && rows.firstCreated < rows.endCreated) {
            const int row = isDown ? rows.firstCreated : rows.endCreated - 1;
            isKept = !mayDestroy(rows, row);
            if (isKept)
                break;
            rows.destroyRow(row);
            isDown ? ++rows.firstCreated : --rows.endCreated;
            ++destroyed;
        }
        // All gone: the rows lie before the window or behind it, with what was never created.
        if (destroyed > before && rows.firstCreated == rows.endCreated)
            rows.firstCreated = rows.endCreated = isDown ? rows.rowCount() : 0;
        if (destroyed >= limit ||
            std::tie(place.set, place.property) == std::tie(end.set, end.property))
            break;
    }
    update();
    return destroyed;
}

void CreationWindow::update() {
    int live = 0;
    int before = 0;
    int firstSet = -1;
    int lastSet = -1;
    for (int set = 0; set < sets_.setCount(); ++set) {
        int firstProperty = -1;
        int lastProperty = -1;
        for (int property = 0; property < sets_.propertyCount(set); ++property) {
            const CreatableRows& rows = sets_.rowsOf(set, property);
            before += rows.firstCreated;
            live += rows.endCreated - rows.firstCreated;
            if (rows.firstCreated == rows.endCreated)
                continue;
            if (firstProperty < 0)
                firstProperty = property;
            lastProperty = property;
        }
        if (firstProperty < 0)
            continue;
        sets_.cursorsOf(set) = {firstProperty, lastProperty};
        if (firstSet < 0)
            firstSet = set;
        lastSet = set;
    }
    createdFrom = before;
    createdTo = before + live + sets_.headerCount();
    if (firstSet < 0) {  // nothing is created: creation goes on, either way, where it was
        lastCreatedSet = std::max(firstCreatedSet, 0);
        if (lastCreatedSet < sets_.setCount())
            sets_.cursorsOf(lastCreatedSet).last = sets_.cursorsOf(lastCreatedSet).first;
        return;
    }
    firstCreatedSet = firstSet;
    lastCreatedSet = lastSet;
}
