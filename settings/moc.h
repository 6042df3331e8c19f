// What moc includes before each header that it reads: it does not understand the concepts of the standard
// library, which are left out for older languages.
#undef __cplusplus
