#ifndef ORV_OMU_DETAIL_OMU_FORGETATOMS_H
#define ORV_OMU_DETAIL_OMU_FORGETATOMS_H

/// Empties the table of omu_Atom.
void omu_ForgetAtoms() noexcept;

#endif
