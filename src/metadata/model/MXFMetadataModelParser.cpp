#include "metadata/model/MXFMetadataModelParser.h"

#include "metadata/faults.h"
#include "util/check.h"
#include "util/quietly.h"

#include <vexa/metadata/MetadataRoot.h>

#include <algorithm>
#include <iterator>
#include <utility>

inline namespace vexa_toolkit {

namespace faults = metadata::faults;

using klvutil::describe;

MXFMetadataModelParser::MXFMetadataModelParser(MXFMetadataModelHandler& handler,
                                               MXFMetadataFactory& factory)
    : handler_(handler), factory_(factory) {}

MXFMetadataModelParser::~MXFMetadataModelParser() = default;

void MXFMetadataModelParser::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void MXFMetadataModelParser::clear() {
    roots_.clear();
    dangling_.clear();
    objects_.clear();
}

void MXFMetadataModelParser::startMetadata() {
    clear();
    handler_.startMetadata();
}

void MXFMetadataModelParser::primer(const MXFPrimer&) {}

bool MXFMetadataModelParser::wantsPrimedSet(const KLVKey& key) {
    if (factory_.canParse(key)) {
        return true;
    }
    klvutil::report(errorHandler_, faults::unrecognizedMetadata, describe(key));
    return false;
}

void MXFMetadataModelParser::primedSet(const MXFPrimedSet& set) {
    const MXFParsedSet parsed = factory_.parse(set);
    util::check(parsed.object != nullptr, "factory has created object");
    addObject(parsed.object);
    for (const auto& [uid, reference] : parsed.references) {
        addReference(uid, reference);
    }
}

void MXFMetadataModelParser::addObject(const boost::shared_ptr<MetadataRoot>& object) {
    const MXFUID& uid = object->getInstanceUID();
    if (!objects_.emplace(uid, object).second) {
        klvutil::report(errorHandler_, faults::duplicateInstanceUID, describe(uid));
        roots_.push_back(object);
        return;
    }
    auto [next, end] = dangling_.equal_range(uid);
    while (next != end) {
        next = tryToResolve(*next->second, object, false) ? dangling_.erase(next) : std::next(next);
    }
    if (!object->hasOwner()) {
        roots_.push_back(object);
    }
}

void MXFMetadataModelParser::addReference(const MXFUID& uid,
                                          const boost::shared_ptr<dangling_ref_base>& reference) {
    const auto target = objects_.find(uid);
    if (target == objects_.end() || !tryToResolve(*reference, target->second, true)) {
        dangling_.emplace(uid, reference);
    }
}

bool MXFMetadataModelParser::tryToResolve(dangling_ref_base& reference,
                                          const boost::shared_ptr<MetadataRoot>& target,
                                          bool backward) const {
    const MXFUID& uid = target->getInstanceUID();
    if (reference.isStrong() && target->hasOwner()) {
        klvutil::report(errorHandler_, faults::alreadyOwned, describe(uid));
        return false;
    }
    if (reference.isStrong() && backward) {
        klvutil::report(errorHandler_, faults::backwardReference, describe(uid));
    }
    try {
        reference.resolve(target);
    } catch (const util::assertion_failure& failure) {
        klvutil::report(errorHandler_, faults::invalidReference,
                        describe(uid) + " - " + failure.what());
        return false;
    }
    return true;
}

void MXFMetadataModelParser::endMetadata() {
    try {
        judgeModel();
    } catch (...) { // the error handler's
        clear();
        util::quietly([&] { handler_.endMetadata(); });
        throw;
    }
    const auto roots = std::exchange(roots_, {});
    clear();
    if (!roots.empty()) {
        handler_.model(roots);
    }
    handler_.endMetadata();
}

void MXFMetadataModelParser::judgeModel() {
    if (!dangling_.empty()) {
        klvutil::report(errorHandler_, faults::danglingReferences,
                        describe(dangling_.begin()->first));
    }
    if (!roots_.empty() && roots_.front()->hasOwner()) {
        klvutil::report(errorHandler_, faults::firstNotRoot);
    }
    roots_.erase(std::remove_if(roots_.begin(), roots_.end(),
                                [](const auto& object) { return object->hasOwner(); }),
                 roots_.end());
    if (roots_.size() > 1) {
        klvutil::report(errorHandler_, faults::unreferencedObjects,
                        describe(roots_[1]->getInstanceUID()));
    }
}

} // namespace vexa_toolkit
