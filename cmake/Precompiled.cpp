// A target has to have a source file; this one is there for its precompiled headers.
