#ifndef ORV_BASE_FTR_FEATURELIST_H
#define ORV_BASE_FTR_FEATURELIST_H

/// The features of a model. The class belongs to the modelling application; here it is only passed on by address.
class ftr_FeatureList;

#endif
