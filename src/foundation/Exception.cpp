#include "NxException.h"

#include <memory>

namespace NxXmlLib9 {

CNxException::CNxException() : m_inner(nullptr) {}

CNxException::CNxException(std::string message) : m_message(std::move(message)), m_inner(nullptr) {}

CNxException::CNxException(std::string message, const CNxException& inner)
    : m_message(std::move(message)), m_inner(inner.Clone())
{
}

CNxException::CNxException(const CNxException& other)
    : m_message(other.m_message), m_inner(other.m_inner ? other.m_inner->Clone() : nullptr)
{
}

CNxException::~CNxException()
{
    delete m_inner;
    m_inner = nullptr;
}

// The other chain is cloned before the old one goes, so assigning a failure
// to itself, or to a member of its own chain, stays valid.
CNxException& CNxException::operator=(const CNxException& other)
{
    // Held until the message is in place: a failed copy of the message
    // leaves this failure as it was and frees the clone.
    std::unique_ptr<CNxException> inner(other.m_inner ? other.m_inner->Clone() : nullptr);
    m_message = other.m_message;
    delete m_inner;
    m_inner = inner.release();
    return *this;
}

CNxException* CNxException::Clone() const { return new CNxException(*this); }

std::string CNxException::GetMessage() const { return m_message; }

CNxException* CNxException::GetInnerException() const { return m_inner; }

std::string CNxException::GetFullMessage() const
{
    std::string text = m_message;
    for (const CNxException* level = m_inner; level; level = level->m_inner) {
        text += '\n';
        text += level->m_message;
    }
    return text;
}

} // namespace NxXmlLib9
