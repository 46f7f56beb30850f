#pragma once

// Base of classes that are used through their virtual functions, and not copied.
class Interface {
 public:
    Interface() = default;
    virtual ~Interface() = default;
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;
};
