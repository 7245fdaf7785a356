// One object of type T per thread, made at its first use in the thread and freed
// when the thread ends. Get gives null once the thread's objects are being
// destroyed: code that runs then, in the destructor of a thread-local object made
// before T's, must do without it instead of using an object already freed.
#pragma once

namespace OrvexXmlLib5 {
namespace Detail {

template <typename T>
class CThreadOwned
{
public:
    // The thread's T; null at the thread's end.
    static T* Get()
    {
        if (t_object || t_ended) return t_object;
        t_release.Register();  // the first use sets up the release at the thread's exit
        t_object = new T();
        return t_object;
    }

private:
    struct CRelease
    {
        void Register() {}
        ~CRelease()
        {
            delete t_object;
            t_object = nullptr;
            t_ended = true;
        }
    };

    // Neither needs destruction, so both can still be read at the thread's end.
    static thread_local T* t_object;
    static thread_local bool t_ended;
    static thread_local CRelease t_release;
};

template <typename T>
thread_local T* CThreadOwned<T>::t_object = nullptr;
template <typename T>
thread_local bool CThreadOwned<T>::t_ended = false;
template <typename T>
thread_local typename CThreadOwned<T>::CRelease CThreadOwned<T>::t_release;

}  // namespace Detail
}  // namespace OrvexXmlLib5
