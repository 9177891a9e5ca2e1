// SPDX-License-Identifier: MIT
#include "tools/tour.hpp"

#include "tools/tour_day.hpp"
#include "tools/tour_edits.hpp"
#include "tools/tour_sights.hpp"
#include "tools/tour_steps.hpp"

#include <QDir>
#include <QTemporaryDir>

namespace vkr {

namespace {

void cancel(TourSteps& tour) {
    tour.click("cmdCancel");
    tour.expect(tour.workspace().windows().isEmpty(), QStringLiteral("Cancel closes the window"));
}

// What the sights have changed.
void discard(TourSteps& tour) {
    const QString question =
        tour.clickAndAnswer("cmdCancel", QStringLiteral("Discard"), "discard.png");
    tour.expect(question == QStringLiteral("Discard 3 changes?"),
                QStringLiteral("Cancel asks: the date and both rows"));
    tour.expect(tour.workspace().windows().isEmpty(), QStringLiteral("Cancel closes the window"));
    tour.driver().activate(tour.workspace().list());
}

void visit(TourSteps& tour) {
    tour.start();
    tour.open();
    takeSights(tour);
    discard(tour);
    tour.open();
    editCompany(tour);
    addPeriods(tour);
    cancel(tour);
}

} // namespace

int runTour(const QString& folder, const QString& samples) {
    return TourSteps(QDir(folder), samples).take(visit);
}

int runDay(const QString& folder, const QString& facts) {
    const QTemporaryDir noSamples;
    return TourSteps(QDir(folder), noSamples.path()).take([&](TourSteps& tour) {
        spendDay(tour, facts);
    });
}

} // namespace vkr
