// Nothing: the precompiled headers of the tests belong to a target, and a target has a source.
