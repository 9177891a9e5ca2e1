// SPDX-License-Identifier: MIT
#include "host/silenced_in_store.hpp"

#include <stdexcept>

namespace vkr {

SilencedInStore::SilencedInStore(CompanyStore& store, std::int64_t company,
                                 const std::vector<FindingVerdict>& calledRight,
                                 const ShownCompany& shown)
    : store_(store), company_(company), shown_(shown) {
    for (const FindingVerdict& verdict : calledRight) {
        Finding finding;
        finding.key = verdict.finding;
        known_.silence(finding);
    }
}

void SilencedInStore::judge(const Finding& finding, Verdict verdict) {
    const FigurePlace& place = finding.places.front();
    const auto done =
        store_.judge(company_, {finding.key, finding.text, std::string(rowOf(place.datum).name),
                                historyPeriod(*shown_.recordToSave(), place.datum, place.element),
                                verdict == Verdict::right});
    if (!done)
        throw std::runtime_error(done.error().message);
}

void SilencedInStore::silence(const Finding& finding) {
    judge(finding, Verdict::right);
    known_.silence(finding);
}

void SilencedInStore::speakAgain(const Finding& finding) {
    judge(finding, Verdict::withdrawn);
    known_.speakAgain(finding);
}

} // namespace vkr
