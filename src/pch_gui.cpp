// Carries the precompiled header that the layers share.
