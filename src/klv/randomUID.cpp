#include "klv/randomUID.h"

#include <boost/uuid/random_generator.hpp>

#include <algorithm>

inline namespace vexa_toolkit {

namespace klvutil {

MXFUID createRandomUID() {
    const boost::uuids::uuid uuid = boost::uuids::random_generator()();
    MXFUID uid;
    std::copy(uuid.begin(), uuid.end(), uid.bytes.begin());
    return uid;
}

} // namespace klvutil

} // namespace vexa_toolkit
