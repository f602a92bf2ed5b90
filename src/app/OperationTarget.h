#pragma once

#include "mirror/MenuItem.h"

#include <string>

namespace tarragon {

// Carries the action of a menu item out with one of an object's operations. The object outlives the target.
template <typename Object>
class OperationTarget final : public MenuTarget {
public:
    using Operation = void (Object::*)();

    OperationTarget(Object& object, Operation operation)
        : _object(object)
        , _operation(operation) { }

    void performAction(const std::string&, MenuItem&) override { (_object.*_operation)(); }

private:
    Object& _object;
    Operation _operation;
};

} // namespace tarragon
