// Ox_ThreadMutex over a POSIX mutex.
#include "Ox_ThreadMutex.h"

Ox_ThreadMutex::Ox_ThreadMutex() { pthread_mutex_init(&m_mutex, nullptr); }

Ox_ThreadMutex::~Ox_ThreadMutex() { pthread_mutex_destroy(&m_mutex); }

void Ox_ThreadMutex::Lock() { pthread_mutex_lock(&m_mutex); }

void Ox_ThreadMutex::Unlock() { pthread_mutex_unlock(&m_mutex); }
