#pragma once

#include <vexa/metadata/MXFMetadataFactory.h>
#include <vexa/metadata/MetadataRoot.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// References that were read and wait for their targets.
namespace metadata {

/// Where objects of a class hold one or more references.
class ReferenceSlot {
public:
    virtual bool isStrong() const = 0;
    /// Stores the target in the object that refers to it, at `index` among its present targets if
    /// there can be several. Throws util::assertion_failure "object is value type" for a target of
    /// another class.
    virtual void place(MetadataRoot& owner, const boost::shared_ptr<MetadataRoot>& target,
                       std::size_t index) const = 0;

protected:
    ~ReferenceSlot() = default;
};

class dangling_ref_t : public dangling_ref_base {
public:
    /// The slot outlives the reference.
    dangling_ref_t(boost::shared_ptr<MetadataRoot> owner, const ReferenceSlot& slot);
    ~dangling_ref_t() override;

    bool isStrong() const override;
    void resolve(const boost::shared_ptr<MetadataRoot>& target) override;

private:
    boost::shared_ptr<MetadataRoot> owner_;
    const ReferenceSlot* slot_;
};

/// Counts which elements of a vector have been placed: they go in the file's order, whichever order
/// they come in, and an element that never comes leaves no hole.
class PlacedElements {
public:
    explicit PlacedElements(std::size_t count) : tree_(count) {}

    /// Of those before the element.
    std::size_t countBefore(std::size_t element) const;
    void add(std::size_t element);

private:
    /// A binary indexed tree: entry i - 1 counts the (i & -i) elements up to and with i - 1.
    std::vector<std::uint32_t> tree_;
};

/// One element of a vector of references.
class dangling_vector_ref_t : public dangling_ref_base {
public:
    dangling_vector_ref_t(boost::shared_ptr<MetadataRoot> owner, const ReferenceSlot& slot,
                          boost::shared_ptr<PlacedElements> placed, std::size_t element);
    ~dangling_vector_ref_t() override;

    bool isStrong() const override;
    void resolve(const boost::shared_ptr<MetadataRoot>& target) override;

private:
    boost::shared_ptr<MetadataRoot> owner_;
    const ReferenceSlot* slot_;
    boost::shared_ptr<PlacedElements> placed_;
    std::size_t element_;
    bool resolved_ = false;
};

/// Adds one for each element.
void addVectorReferences(const std::vector<MXFUID>& targets,
                         const boost::shared_ptr<MetadataRoot>& owner, const ReferenceSlot& slot,
                         MXFDanglingReferences& references);

/// A dark property that is a strong reference.
class dangling_dark_ref_t : public dangling_ref_base {
public:
    dangling_dark_ref_t(boost::shared_ptr<MetadataRoot> owner, const KLVKey& key);
    ~dangling_dark_ref_t() override;

    bool isStrong() const override;
    void resolve(const boost::shared_ptr<MetadataRoot>& target) override;

private:
    boost::shared_ptr<MetadataRoot> owner_;
    KLVKey key_;
};

} // namespace metadata

} // namespace vexa_toolkit
