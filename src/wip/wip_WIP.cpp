#include <wip/wip_WIP.h>

template class thr_ThreadSingleton<wip_WIP>;

wip_WIP& wip_WIP::Instance() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

bool wip_WIP::Finalize() { return thr_ThreadSingleton<wip_WIP>::Finalize(); }
