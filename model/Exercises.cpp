#include "model/Exercises.h"

#include "model/DataDump.h"
#include "model/Json.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

QString description(const QList<Exercise>& exercises) {
    QStringList names;
    for (const Exercise& exercise : exercises)
        names += exercise.name;
    return QStringLiteral("[") + names.join(QStringLiteral(", ")) + QStringLiteral("]");
}

bool renameIn(QList<Exercise>& exercises, const QUuid& id, const QString& name) {
    const auto found = std::ranges::find(std::as_const(exercises), id, &Exercise::id);
    if (found == exercises.cend())
        return false;
    exercises[found - exercises.cbegin()].name = name;
    return true;
}

} // namespace

Exercises::Exercises(SettingsStore& userDefaults, UuidSource& uuids) : m_userDefaults(userDefaults), m_uuids(uuids) {
    load();
}

void Exercises::load() {
    auto archive = readDocument<QList<Exercise>>(m_userDefaults, keys::archivedExercises);
    if (archive.isUnreadable())
        setAside(m_userDefaults, keys::archivedExercises);
    m_archivedItems = std::move(archive.value).value_or(QList<Exercise>());

    auto active = readDocument<QList<Exercise>>(m_userDefaults, keys::exercises);
    if (active.isAbsent()) {
        m_items = {{QStringLiteral("Untitled practice"), m_uuids.next()}};
        // Saved, so that what is kept under its identity from now on still belongs to it after a restart.
        saveItems();
        return;
    }
    if (active.isUnreadable()) {
        log(active.problem);
        setAside(m_userDefaults, keys::exercises);
    }
    m_items = std::move(active.value).value_or(QList<Exercise>());
}

void Exercises::reload() {
    load();
    m_archivedItemsChanged.notify();
    m_itemsChanged.notify();
}

void Exercises::replace(const DataDump& dump) {
    // Together, so that no item is lost or in both lists.
    m_userDefaults.atomically([&] {
        setArchivedItems(dump.allArchivedExercises);
        setItems(dump.allExercises);
    });
}

void Exercises::setItems(QList<Exercise> items) {
    m_items = std::move(items);
    saveItems();
    m_itemsChanged.notify();
}

void Exercises::setArchivedItems(QList<Exercise> items) {
    m_archivedItems = std::move(items);
    saveArchivedItems();
    m_archivedItemsChanged.notify();
}

Exercise Exercises::add(const QString& name) {
    const Exercise exercise{name, m_uuids.next()};
    QList<Exercise> items = m_items;
    items.prepend(exercise);
    setItems(std::move(items));
    return exercise;
}

// What is given to the following may lie in the lists that they replace; hence the copies.

void Exercises::rename(const Exercise& given, const QString& name, const Completion& completion) {
    const Exercise renamed{name, given.id};
    QList<Exercise> items = m_items;
    QList<Exercise> archived = m_archivedItems;
    if (renameIn(items, renamed.id, name))
        setItems(std::move(items));
    else if (renameIn(archived, renamed.id, name))
        setArchivedItems(std::move(archived));
    if (completion)
        completion(renamed);
}

void Exercises::archive(const Exercise& given, const Completion& completion) {
    const Exercise exercise = given;
    QList<Exercise> items = m_items;
    if (items.removeAll(exercise) > 0) {
        // Together, so that no crash between the two lists can lose the item or show it twice.
        m_userDefaults.atomically([&] {
            setItems(std::move(items));
            setArchivedItems(m_archivedItems + QList<Exercise>{exercise});
        });
    }
    if (completion)
        completion(exercise);
}

void Exercises::unarchive(const Exercise& exercise) {
    QList<Exercise> archived = m_archivedItems;
    if (archived.removeAll(exercise) == 0)
        return;
    m_userDefaults.atomically([&] {
        setItems(QList<Exercise>{exercise} + m_items);
        setArchivedItems(std::move(archived));
    });
}

void Exercises::remove(const Exercise& given) {
    const Exercise exercise = given;
    QList<Exercise> items = m_items;
    QList<Exercise> archived = m_archivedItems;
    const bool wasActive = items.removeAll(exercise) > 0;
    const bool wasArchived = archived.removeAll(exercise) > 0;
    m_userDefaults.atomically([&] {
        if (wasActive)
            setItems(std::move(items));
        if (wasArchived)
            setArchivedItems(std::move(archived));
        for (const QString& suffix : keys::legacy::suffixes)
            m_userDefaults.remove(keys::uuidText(exercise.id) + suffix);
    });
}

void Exercises::move(qsizetype from, qsizetype to) {
    QList<Exercise> items = m_items;
    items.move(from, to);
    setItems(std::move(items));
}

void Exercises::saveItems() const {
    log(QStringLiteral("saving exercises: ") + description(m_items));
    const auto document = json::encode(m_items);
    if (!document)
        fatalError(QStringLiteral("Unable to encode exercises"));
    m_userDefaults.setData(keys::exercises, *document);
}

void Exercises::saveArchivedItems() const {
    log(QStringLiteral("saving %1 exercises to Archive").arg(m_archivedItems.size()));
    const auto document = json::encode(m_archivedItems);
    if (m_archivedItems.isEmpty() || !document)
        m_userDefaults.remove(keys::archivedExercises);
    else
        m_userDefaults.setData(keys::archivedExercises, *document);
}

} // namespace tamsel
