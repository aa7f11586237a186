#include <mwp/MWPMutex.h>

MWPMutex::MWPMutex() = default;

MWPMutex::~MWPMutex() = default;

void MWPMutex::Lock() { m_mutex.lock(); }

void MWPMutex::Unlock() { m_mutex.unlock(); }
