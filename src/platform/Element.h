#pragma once

#include <memory>
#include <utility>

namespace tarragon {

// What a back end remembers of one user-interface element of another process. Immutable once made, so that a handle
// may be shared between threads.
class ElementHandle {
public:
    ElementHandle() = default;
    ElementHandle(const ElementHandle&) = delete;
    ElementHandle& operator=(const ElementHandle&) = delete;
    virtual ~ElementHandle() = default;

    // True when both handles name the same remote object.
    virtual bool equals(const ElementHandle& other) const = 0;
};

// A cheap, copyable, reference-counted handle to a user-interface element of another process: an application, a
// window, a menu bar, a menu, a menu item. An empty Element is nil. The remote object may be gone at any time; every
// question about it is then answered with nothing.
class Element {
public:
    Element() = default;
    explicit Element(std::shared_ptr<const ElementHandle> handle)
        : _handle(std::move(handle)) { }

    explicit operator bool() const { return _handle != nullptr; }
    const ElementHandle* handle() const { return _handle.get(); }

    friend bool operator==(const Element& left, const Element& right) {
        if (left._handle == right._handle)
            return true;
        return left._handle && right._handle && left._handle->equals(*right._handle);
    }

private:
    std::shared_ptr<const ElementHandle> _handle;
};

} // namespace tarragon
