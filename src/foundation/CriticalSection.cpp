#include "NxFoundation.h"

namespace NxXmlLib9 {

CNXCriticalSection::CNXCriticalSection() { pthread_mutex_init(&m_mutex, nullptr); }

CNXCriticalSection::~CNXCriticalSection() { pthread_mutex_destroy(&m_mutex); }

int CNXCriticalSection::Enter() { return pthread_mutex_lock(&m_mutex); }

int CNXCriticalSection::Leave() { return pthread_mutex_unlock(&m_mutex); }

} // namespace NxXmlLib9
