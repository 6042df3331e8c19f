// moc includes this before each header. It cannot parse the standard library's concepts, which the library
// leaves out for older language versions.
#undef __cplusplus
