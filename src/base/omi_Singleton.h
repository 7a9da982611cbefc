#ifndef ORV_BASE_OMI_SINGLETON_H
#define ORV_BASE_OMI_SINGLETON_H

#include <memory>

/// The one T of the process, made by the first `Instance()`. `Finalize()` deletes it, after which the next `Instance()`
/// makes a fresh one: never keep the address. What is left at the end of the process is deleted then.
///
/// T has a default constructor, which may be private to the friend `omi_Singleton<T>`, and a public destructor. Neither
/// may call `Instance()` of the same T.
///
/// Library and host are to see one T. The header of an exported class says so, before the first use of the singleton
/// (an attribute on a template that is in use already would be ignored), and its source makes it:
///
///     extern template class ORV_EXPORT omi_Singleton<gsl_Util>;   // gsl_Util.h
///
///     template class omi_Singleton<gsl_Util>;                     // gsl_Util.cpp
///
/// Threads: there is no lock. The instance is made, used and finalised by one thread at a time.
template <class T>
class omi_Singleton {
public:
    /// The one object; made on use.
    [[nodiscard]] static T& Instance();

    /// Does nothing when there is no instance.
    static void Finalize();

private:
    static std::unique_ptr<T> _instance;
};

template <class T>
constinit std::unique_ptr<T> omi_Singleton<T>::_instance;

template <class T>
T& omi_Singleton<T>::Instance() {
    if (!_instance) _instance.reset(new T);
    return *_instance;
}

template <class T>
void omi_Singleton<T>::Finalize() {
    _instance.reset();
}

#endif
