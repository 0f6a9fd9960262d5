#pragma once

#include <QMap>
#include <QTcpServer>
#include <QTcpSocket>

namespace vanto
{

/// A web server on this machine with the files of a firmware server. An empty file is not found,
/// and a request for an unknown path is not answered.
class FileServer : public QTcpServer
{
public:
    FileServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            auto* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(socket); });
        });
    }
    QString url() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }

    QMap<QByteArray, QByteArray> files; ///< by their paths
    QByteArrayList paths;               ///< that have been requested

private:
    void answer(QTcpSocket* socket)
    {
        paths.append(socket->readAll().split(' ').value(1));
        if (!files.contains(paths.constLast()))
            return;
        const QByteArray file = files.value(paths.constLast());
        socket->write(file.isEmpty() ? "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"
                                     : "HTTP/1.1 200 OK\r\nContent-Length: " +
                                           QByteArray::number(file.size()) + "\r\n\r\n" + file);
        socket->disconnectFromHost();
    }
};

} // namespace vanto
